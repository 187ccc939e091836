#include "document/dom_values.h"
#include "document/dots.h"
#include "document/elements.h"
#include "document/vocabulary.h"
#include "handler/velnorxml.h"

#include <QDomElement>

namespace {

// "Auto", "2*" or a number of dots.
void readLength(const QString& text, VelnorRowColumn& entry) {
    const QString trimmed = text.trimmed();
    if (trimmed == QLatin1String("Auto")) {
        entry.type = velnor::AutoLength;
        entry.size = 0;
    } else if (trimmed.endsWith(QLatin1Char('*'))) {
        entry.type = velnor::ProportionalLength;
        entry.size = velnor::integerOr(trimmed.chopped(1), 0);
    } else {
        entry.type = velnor::AbsoluteLength;
        entry.size = velnor::integerOr(trimmed, 0);
    }
}

void readDefinitions(const QDomElement& definitions, const velnor::GridWords& words,
                     std::unique_ptr<VelnorRowColumn[]>& entries, int& count) {
    const QDomNodeList nodes = definitions.elementsByTagName(QLatin1String(words.entry));
    count = nodes.size();
    entries = std::make_unique<VelnorRowColumn[]>(static_cast<size_t>(count));
    for (int i = 0; i < count; ++i) {
        const QDomNode size =
            nodes.at(i).toElement().elementsByTagName(QLatin1String(words.size)).at(0);
        if (!size.isNull()) {
            readLength(size.toElement().text(), entries[static_cast<size_t>(i)]);
        }
    }
}

// A document without definitions has one row or column as long as the canvas.
void ensureOneEntry(std::unique_ptr<VelnorRowColumn[]>& entries, int& count, int canvasLength) {
    if (count == 0) {
        count = 1;
        entries = std::make_unique<VelnorRowColumn[]>(1);
        entries[0].size = canvasLength;
    }
}

// Provisional: automatic and proportional lengths are not known before the items were measured.
void setOffsets(VelnorRowColumn* entries, int count) {
    int offset = 0;
    for (int i = 0; i < count; ++i) {
        entries[i].offset = offset;
        offset = velnor::saturate(static_cast<qint64>(offset) + entries[i].size);
    }
}

} // namespace

void VelnorXml::parseRowDefinitions(const QDomElement& definitions, VelnorDrawableCanvas* canvas) {
    readDefinitions(definitions, velnor::RowWords, canvas->rows, canvas->rowCount);
}

void VelnorXml::parseColumnDefinitions(const QDomElement& definitions,
                                       VelnorDrawableCanvas* canvas) {
    readDefinitions(definitions, velnor::ColumnWords, canvas->columns, canvas->columnCount);
}

int VelnorXml::FixCanvasRow(VelnorDrawableCanvas* canvas) {
    ensureOneEntry(canvas->rows, canvas->rowCount, canvas->height);
    for (int i = 0; i < canvas->rowCount && canvas->height == velnor::NotGiven; ++i) {
        // A growing canvas has no rest that proportional rows could share. Columns stay as they
        // are, even in a canvas without a width.
        VelnorRowColumn& row = canvas->rows[static_cast<size_t>(i)];
        if (row.type == velnor::ProportionalLength) {
            row.type = velnor::AutoLength;
        }
    }
    setOffsets(canvas->rows.get(), canvas->rowCount);
    return 0;
}

int VelnorXml::FixCanvasColumn(VelnorDrawableCanvas* canvas) {
    ensureOneEntry(canvas->columns, canvas->columnCount, canvas->width);
    setOffsets(canvas->columns.get(), canvas->columnCount);
    return 0;
}
