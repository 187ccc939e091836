#include "document/item_fields.h"

#include "document/dom_values.h"
#include "document/vocabulary.h"
#include "handler/velnorxml.h"

#include <QDomElement>

using velnor::BarcodeOptionNotGiven;
using velnor::NotGiven;
using velnor::RotationNotANumber;
using velnor::ValueKind;

namespace {

using Element = VelnorDrawableElement;
using Image = VelnorDrawableImage;
using Text = VelnorDrawableText;
using Barcode = VelnorDrawableBarcode;
using Rectangle = VelnorDrawableRectangle;
using Ellipse = VelnorDrawableEllipse;
using Line = VelnorDrawableLine;

struct Surroundings {
    const VelnorDrawableCanvas& canvas;
    const VelnorXml& handler;
};

// One row of a kind's table: an element name and what its text sets.
template <typename Record>
struct Field {
    velnor::Word word;
    void (*set)(Record& record, const QString& text, const Surroundings& surroundings);
};

template <typename Record, int Record::*Member, int NotANumber>
void setInteger(Record& record, const QString& text, const Surroundings&) {
    record.*Member = velnor::integerOr(text, NotANumber);
}

template <typename Record, bool Record::*Member, bool NotANumber>
void setFlag(Record& record, const QString& text, const Surroundings&) {
    record.*Member = velnor::flagOr(text, NotANumber);
}

template <typename Record, QString Record::*Member>
void setText(Record& record, const QString& text, const Surroundings&) {
    record.*Member = text;
}

void setVerticalAnchor(Element& item, const QString& text, const Surroundings&) {
    item.anchor = (item.anchor & ~velnor::AnchorVerticalCentre) |
                  (VelnorXml::GetVAnchorValue(text, 0) & velnor::AnchorVerticalCentre);
}

void setHorizontalAnchor(Element& item, const QString& text, const Surroundings&) {
    item.anchor = (item.anchor & ~velnor::AnchorHorizontalCentre) |
                  (VelnorXml::GetHAnchorValue(text, 0) & velnor::AnchorHorizontalCentre);
}

// A negative index is kept as given; one at or past the end becomes 0.
int indexBelow(const QString& text, int count) {
    const int index = velnor::integerOr(text, 0);
    return index < count ? index : 0;
}

void setColumn(Element& item, const QString& text, const Surroundings& surroundings) {
    item.column = indexBelow(text, surroundings.canvas.columnCount);
}

void setRow(Element& item, const QString& text, const Surroundings& surroundings) {
    item.row = indexBelow(text, surroundings.canvas.rowCount);
}

void setFilePath(Image& image, const QString& text, const Surroundings& surroundings) {
    image.filepath = surroundings.handler.GetImageFilePath(text);
}

void setInputMode(Barcode& barcode, const QString& text, const Surroundings&) {
    barcode.inputmode = velnor::integerInRangeOr(text, 0, 2, 1);
}

constexpr Field<Element> PlacementFields[] = {
    {{"anchor", ValueKind::Number}, setInteger<Element, &Element::anchor, 0>},
    {{"vanchor", ValueKind::VerticalAnchor}, setVerticalAnchor},
    {{"hanchor", ValueKind::HorizontalAnchor}, setHorizontalAnchor},
    {{"column", ValueKind::Number}, setColumn},
    {{"row", ValueKind::Number}, setRow},
    {{"rowspan", ValueKind::Number}, setInteger<Element, &Element::rowspan, 1>},
    {{"columnspan", ValueKind::Number}, setInteger<Element, &Element::columnspan, 1>},
    {{"hidden", ValueKind::Number}, setInteger<Element, &Element::hidden, 0>},
};

constexpr Field<Image> ImageFields[] = {
    {{"scalex", ValueKind::Number}, setInteger<Image, &Image::scalex, NotGiven>},
    {{"scaley", ValueKind::Number}, setInteger<Image, &Image::scaley, NotGiven>},
    {{"rotation", ValueKind::Number}, setInteger<Image, &Image::rotation, RotationNotANumber>},
    {{"aspect", ValueKind::Number}, setInteger<Image, &Image::aspect, 0>},
    {{"filepath", ValueKind::Text}, setFilePath},
};

constexpr Field<Text> TextFields[] = {
    {{"rotation", ValueKind::Number}, setInteger<Text, &Text::rotation, RotationNotANumber>},
    {{"text", ValueKind::Text}, setText<Text, &Text::text>},
    {{"flags", ValueKind::Number}, setInteger<Text, &Text::flags, NotGiven>},
    {{"fontname", ValueKind::Text}, setText<Text, &Text::fontname>},
    {{"fontsize", ValueKind::Number}, setInteger<Text, &Text::fontsize, NotGiven>},
    {{"bold", ValueKind::Number}, setFlag<Text, &Text::bold, false>},
    {{"italic", ValueKind::Number}, setFlag<Text, &Text::italic, false>},
    {{"antialias", ValueKind::Number}, setFlag<Text, &Text::antialias, true>},
};

constexpr Field<Barcode> BarcodeFields[] = {
    {{"type", ValueKind::Number}, setInteger<Barcode, &Barcode::barcodeType, 0>},
    {{"hrt", ValueKind::Number}, setInteger<Barcode, &Barcode::hrt, NotGiven>},
    {{"inputmode", ValueKind::NumberUpTo2}, setInputMode},
    {{"primary", ValueKind::Text}, setText<Barcode, &Barcode::primary>},
    {{"option1", ValueKind::Number}, setInteger<Barcode, &Barcode::option1, BarcodeOptionNotGiven>},
    {{"option2", ValueKind::Number}, setInteger<Barcode, &Barcode::option2, BarcodeOptionNotGiven>},
    {{"option3", ValueKind::Number}, setInteger<Barcode, &Barcode::option3, BarcodeOptionNotGiven>},
    {{"rotation", ValueKind::Number}, setInteger<Barcode, &Barcode::rotation, RotationNotANumber>},
    {{"text", ValueKind::Text}, setText<Barcode, &Barcode::text>},
};

constexpr Field<Rectangle> RectangleFields[] = {
    {{"rotation", ValueKind::Number},
     setInteger<Rectangle, &Rectangle::rotation, RotationNotANumber>},
    {{"thickness", ValueKind::Number}, setInteger<Rectangle, &Rectangle::thickness, 0>},
    {{"style", ValueKind::Number}, setInteger<Rectangle, &Rectangle::style, 0>},
    {{"radius", ValueKind::Number}, setInteger<Rectangle, &Rectangle::radius, 0>},
};

constexpr Field<Ellipse> EllipseFields[] = {
    {{"rotation", ValueKind::Number}, setInteger<Ellipse, &Ellipse::rotation, RotationNotANumber>},
    {{"thickness", ValueKind::Number}, setInteger<Ellipse, &Ellipse::thickness, 0>},
    {{"style", ValueKind::Number}, setInteger<Ellipse, &Ellipse::style, 0>},
};

constexpr Field<Line> LineFields[] = {
    {{"rotation", ValueKind::Number}, setInteger<Line, &Line::rotation, RotationNotANumber>},
    {{"thickness", ValueKind::Number}, setInteger<Line, &Line::thickness, 0>},
    {{"style", ValueKind::Number}, setInteger<Line, &Line::style, 0>},
    {{"length", ValueKind::Number}, setInteger<Line, &Line::length, NotGiven>},
};

// True when a row of the table took the element.
template <typename Record, size_t Count>
bool apply(const Field<Record> (&fields)[Count], Record& record, const QDomElement& child,
           const Surroundings& surroundings) {
    const QString name = child.tagName();
    for (const Field<Record>& field : fields) {
        if (name == QLatin1String(field.word.element)) {
            field.set(record, child.text(), surroundings);
            return true;
        }
    }
    return false;
}

const auto& fieldsOf(const Image&) {
    return ImageFields;
}
const auto& fieldsOf(const Text&) {
    return TextFields;
}
const auto& fieldsOf(const Barcode&) {
    return BarcodeFields;
}
const auto& fieldsOf(const Rectangle&) {
    return RectangleFields;
}
const auto& fieldsOf(const Ellipse&) {
    return EllipseFields;
}
const auto& fieldsOf(const Line&) {
    return LineFields;
}

template <typename Record>
velnor::ElementPointer make() {
    return velnor::ElementPointer(new Record);
}

template <typename Record, size_t Count>
void append(velnor::Words& words, const Field<Record> (&fields)[Count]) {
    for (const Field<Record>& field : fields) {
        words.push_back(field.word);
    }
}

struct ItemClass {
    const char* name;
    velnor::ElementPointer (*make)();
};

constexpr ItemClass ItemClasses[] = {
    {"image", make<Image>},         {"text", make<Text>},       {"barcode", make<Barcode>},
    {"rectangle", make<Rectangle>}, {"ellipse", make<Ellipse>}, {"line", make<Line>},
};

} // namespace

velnor::ElementPointer velnor::makeItem(const QString& className) {
    for (const ItemClass& itemClass : ItemClasses) {
        if (className == QLatin1String(itemClass.name)) {
            return itemClass.make();
        }
    }
    return nullptr;
}

void velnor::applyItemField(VelnorDrawableElement& item, const VelnorDrawableCanvas& canvas,
                            const QDomElement& child, const VelnorXml& handler) {
    // No name stands in two of these tables, so the order of the tries does not matter.
    const Surroundings surroundings{canvas, handler};
    if (!VelnorXml::parseCommonTagNam(&item, child) &&
        !apply(PlacementFields, item, child, surroundings)) {
        visitItem(item,
                  [&](auto& record) { apply(fieldsOf(record), record, child, surroundings); });
    }
}

QStringList velnor::itemClasses() {
    QStringList names;
    for (const ItemClass& itemClass : ItemClasses) {
        names.append(QLatin1String(itemClass.name));
    }
    return names;
}

velnor::Words velnor::itemWords(const QString& itemClass) {
    const ElementPointer item = makeItem(itemClass);
    if (!item) {
        return {};
    }
    Words words = commonWords();
    append(words, PlacementFields);
    visitItem(*item, [&words](const auto& record) { append(words, fieldsOf(record)); });
    return words;
}
