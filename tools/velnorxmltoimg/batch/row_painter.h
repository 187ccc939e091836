// A worker's part: rows of data become pictures of one layout.
#ifndef VELNOR_TOOL_ROW_PAINTER_H
#define VELNOR_TOOL_ROW_PAINTER_H

#include "batch/worker_messages.h"
#include "layout/layout.h"

#include <set>

namespace tool {

class RowPainter {
public:
    // Fails where no row can have a picture. Needs a QtHost, and fonts that are kept.
    explicit RowPainter(const WorkerOrder& order);

    // Fails where this row has none; a picture that was there before stays then.
    void paint(const PictureOrder& order);

private:
    void setValues(const std::vector<Value>& values);
    void setObject(const std::string& column, const Setting& setting);

    std::vector<Setting> fixedSettings;
    Mono mono;
    std::string folder;
    std::set<std::string> checkedColumns;
    Layout layout;
};

} // namespace tool

#endif
