// The files that a picture is made of, and whether they have changed.
#ifndef VELNOR_TOOL_WATCHED_FILES_H
#define VELNOR_TOOL_WATCHED_FILES_H

#include "layout/layout_options.h"

#include <QMap>
#include <QString>
#include <QStringList>

namespace tool {

class WatchedFiles {
public:
    // The document, the parameter files and the folder of the fonts: what is known before the
    // document can be read.
    explicit WatchedFiles(const LayoutOptions& options);

    // Adds the pictures that the document shows; those of an earlier version stay. Not while a Layout
    // lives: its fonts would be unregistered. Fails as a Layout does.
    void addPictures(const LayoutOptions& options);

    // What exists of the files, and the folders in which the others would appear.
    QStringList paths() const;

    // Whether any of the files, or one of the font files, came, went or was written since the last
    // call.
    bool haveChanged();

private:
    using State = QMap<QString, QString>;

    State currentState() const;

    QStringList files;
    QString fontFolder;
    State state;
};

} // namespace tool

#endif
