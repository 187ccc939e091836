// The words of a layout document: the elements that the canvas and each kind of item understand, and
// what each takes. The parser goes by the same tables.
#ifndef VELNOR_DOCUMENT_VOCABULARY_H
#define VELNOR_DOCUMENT_VOCABULARY_H

#include <QStringList>

#include <vector>

namespace velnor {

enum class ValueKind {
    Text,
    Number,
    NumberUpTo2,
    Margin,
    HorizontalAnchor,
    VerticalAnchor,
    EjectOrRetract,
    GridLength,
    GridDefinitions // further elements
};

struct Word {
    const char* element;
    ValueKind value;
};
using Words = std::vector<Word>;

// The elements of a grid: a list, its entries, and the size of an entry.
struct GridWords {
    const char* list;
    const char* entry;
    const char* size;
};
constexpr GridWords RowWords{"RowDefinitions", "RowDefinition", "height"};
constexpr GridWords ColumnWords{"ColumnDefinitions", "ColumnDefinition", "width"};

constexpr const char* RootElement = "VelnorRoot";
constexpr const char* ItemListElement = "VelnorItems";
constexpr const char* ItemElement = "VelnorItem";
constexpr const char* CanvasClass = "canvas";
constexpr const char* ReadAttributes[] = {"class", "id", "link"};

// What the printer is told: elements of the canvas that change no picture.
constexpr Word PresentationWord{"presentation", ValueKind::Number};
constexpr Word EjectRetractWord{"ejectRetract", ValueKind::EjectOrRetract};
constexpr Word EjectRetractTimeoutWord{"ejectRetractTimeout", ValueKind::Number};

// document/placement.cpp
Words commonWords();

// document/parser.cpp
Words canvasWords();

// document/item_fields.cpp; no words for a class that is no kind of item
QStringList itemClasses();
Words itemWords(const QString& itemClass);

// document/vocabulary.cpp: whether the text is one that such an element takes. Another text falls
// back to what the element means when it is no number, or is passed over.
bool isTakenBy(ValueKind kind, const QString& text);

} // namespace velnor

#endif
