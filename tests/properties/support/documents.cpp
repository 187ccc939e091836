#include "support/documents.h"

namespace {

QByteArray entries(const QByteArray& list, const QByteArray& entry, const QByteArray& length,
                   const std::vector<QByteArray>& sizes) {
    QByteArray xml;
    for (const QByteArray& size : sizes) {
        xml += element(entry, element(length, size));
    }
    return sizes.empty() ? QByteArray() : element(list, xml) + '\n';
}

QByteArray fourNumbers(int first, int second, int third, int fourth) {
    return QByteArray::number(first) + ',' + QByteArray::number(second) + ',' +
           QByteArray::number(third) + ',' + QByteArray::number(fourth);
}

} // namespace

QByteArray element(const QByteArray& name, const QByteArray& content) {
    return '<' + name + '>' + content + "</" + name + '>';
}

QByteArray element(const QByteArray& name, int content) {
    return element(name, QByteArray::number(content));
}

QByteArray Item::xml() const {
    return "<VelnorItem class=\"" + kind + "\">" + element("row", row) + element("column", column) +
           element("rowspan", rowspan) + element("columnspan", columnspan) +
           element("margin", fourNumbers(x, y, xr, yb)) + element("hanchor", hanchor) +
           element("vanchor", vanchor) + element("rotation", rotation) +
           element("hidden", hidden ? 1 : 0) + fields + "</VelnorItem>\n";
}

QByteArray Document::xml() const {
    QByteArray content = element("width", width) + element("height", height) + element("dpi", dpi) +
                         element("antialiasText", smoothTexts ? 1 : 0) +
                         element("antialiasShape", smoothShapes ? 1 : 0) +
                         element("margin", fourNumbers(margins.left(), margins.top(),
                                                       margins.right(), margins.bottom())) +
                         '\n';
    content += entries("RowDefinitions", "RowDefinition", "height", rows);
    content += entries("ColumnDefinitions", "ColumnDefinition", "width", columns);
    for (const Item& item : items) {
        content += item.xml();
    }
    return "<VelnorRoot><VelnorItems class=\"canvas\">" + content + "</VelnorItems></VelnorRoot>\n";
}

Item ruler(int row, int y, int length, int thickness) {
    Item line;
    line.kind = "line";
    line.fields = element("length", length) + element("thickness", thickness);
    line.row = row;
    line.y = y;
    return line;
}
