#include "layout/param_list.h"

#include "failure.h"
#include "layout/handler.h"

#include <velnorxmltoimg.h>

#include <QString>
#include <QStringList>

namespace {

constexpr int FirstSize = 64 * 1024;
constexpr int LargestSize = 1 << 28;
const QChar Separator(0x1E);

struct Lists {
    QString names;
    QString values;
};

// Nothing where one of the lists may have been cut.
bool readLists(void* handler, const QString& file, int size, Lists& lists) {
    std::vector<unsigned short> names(static_cast<size_t>(size));
    std::vector<unsigned short> values(static_cast<size_t>(size));
    if (xmlToImgGetDictionaryFromParamFileUnicode(handler, file.utf16(), file.size(), names.data(),
                                                  values.data(), size) != 0) {
        throw tool::Failure(tool::ExitCode::UnreadableDocument,
                            "'" + file.toStdString() + "' is no parameter file");
    }
    lists.names = QString::fromUtf16(names.data());
    lists.values = QString::fromUtf16(values.data());
    return lists.names.size() < size - 1 && lists.values.size() < size - 1;
}

} // namespace

std::vector<tool::Param> tool::readParams(const std::string& file) {
    const Handler handler = createHandler({}, {}, {});
    Lists lists;
    int size = FirstSize;
    while (!readLists(handler.get(), QString::fromStdString(file), size, lists) &&
           size < LargestSize) {
        size *= 2;
    }
    const QStringList names = lists.names.split(Separator);
    const QStringList values = lists.values.split(Separator);
    std::vector<Param> params;
    for (int i = 0; i < names.size() && i < values.size(); ++i) {
        params.push_back({names[i].toStdString(), values[i].toStdString()});
    }
    return params;
}
