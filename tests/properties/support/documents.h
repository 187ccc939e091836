// Layout documents as values: made, changed, and written as XML.
#ifndef VELNOR_TESTS_DOCUMENTS_H
#define VELNOR_TESTS_DOCUMENTS_H

#include <QByteArray>
#include <QMargins>

#include <vector>

// The text of an element that holds `content`, or a number.
QByteArray element(const QByteArray& name, const QByteArray& content);
QByteArray element(const QByteArray& name, int content);

struct Item {
    QByteArray kind;
    QByteArray fields; // the elements that belong to the kind, the size among them
    int x = 0;
    int y = 0;
    int xr = 0;
    int yb = 0;
    int row = 0;
    int column = 0;
    int rowspan = 1;
    int columnspan = 1;
    QByteArray hanchor = "left";
    QByteArray vanchor = "top";
    int rotation = 0;
    bool hidden = false;

    QByteArray xml() const;
};

constexpr int Grows = -1;

struct Document {
    int width = 0;
    int height = Grows;
    int dpi = 203;
    bool smoothTexts = false;
    bool smoothShapes = false;
    QMargins margins;
    std::vector<QByteArray> rows; // "Auto", "120", "2*"
    std::vector<QByteArray> columns;
    std::vector<Item> items;

    QByteArray xml() const;
};

// A horizontal line from one edge of its cell to the other: a mark that is easily found.
Item ruler(int row, int y, int length, int thickness);

#endif
