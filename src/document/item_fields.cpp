#include "document/item_fields.h"

#include "document/dom_values.h"
#include "handler/velnorxml.h"

#include <QDomElement>

using velnor::BarcodeOptionNotGiven;
using velnor::NotGiven;
using velnor::RotationNotANumber;

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
    const char* elementName;
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
    {"anchor", setInteger<Element, &Element::anchor, 0>},
    {"vanchor", setVerticalAnchor},
    {"hanchor", setHorizontalAnchor},
    {"column", setColumn},
    {"row", setRow},
    {"rowspan", setInteger<Element, &Element::rowspan, 1>},
    {"columnspan", setInteger<Element, &Element::columnspan, 1>},
    {"hidden", setInteger<Element, &Element::hidden, 0>},
};

constexpr Field<Image> ImageFields[] = {
    {"scalex", setInteger<Image, &Image::scalex, NotGiven>},
    {"scaley", setInteger<Image, &Image::scaley, NotGiven>},
    {"rotation", setInteger<Image, &Image::rotation, RotationNotANumber>},
    {"aspect", setInteger<Image, &Image::aspect, 0>},
    {"filepath", setFilePath},
};

constexpr Field<Text> TextFields[] = {
    {"rotation", setInteger<Text, &Text::rotation, RotationNotANumber>},
    {"text", setText<Text, &Text::text>},
    {"flags", setInteger<Text, &Text::flags, NotGiven>},
    {"fontname", setText<Text, &Text::fontname>},
    {"fontsize", setInteger<Text, &Text::fontsize, NotGiven>},
    {"bold", setFlag<Text, &Text::bold, false>},
    {"italic", setFlag<Text, &Text::italic, false>},
    {"antialias", setFlag<Text, &Text::antialias, true>},
};

constexpr Field<Barcode> BarcodeFields[] = {
    {"type", setInteger<Barcode, &Barcode::barcodeType, 0>},
    {"hrt", setInteger<Barcode, &Barcode::hrt, NotGiven>},
    {"inputmode", setInputMode},
    {"primary", setText<Barcode, &Barcode::primary>},
    {"option1", setInteger<Barcode, &Barcode::option1, BarcodeOptionNotGiven>},
    {"option2", setInteger<Barcode, &Barcode::option2, BarcodeOptionNotGiven>},
    {"option3", setInteger<Barcode, &Barcode::option3, BarcodeOptionNotGiven>},
    {"rotation", setInteger<Barcode, &Barcode::rotation, RotationNotANumber>},
    {"text", setText<Barcode, &Barcode::text>},
};

constexpr Field<Rectangle> RectangleFields[] = {
    {"rotation", setInteger<Rectangle, &Rectangle::rotation, RotationNotANumber>},
    {"thickness", setInteger<Rectangle, &Rectangle::thickness, 0>},
    {"style", setInteger<Rectangle, &Rectangle::style, 0>},
    {"radius", setInteger<Rectangle, &Rectangle::radius, 0>},
};

constexpr Field<Ellipse> EllipseFields[] = {
    {"rotation", setInteger<Ellipse, &Ellipse::rotation, RotationNotANumber>},
    {"thickness", setInteger<Ellipse, &Ellipse::thickness, 0>},
    {"style", setInteger<Ellipse, &Ellipse::style, 0>},
};

constexpr Field<Line> LineFields[] = {
    {"rotation", setInteger<Line, &Line::rotation, RotationNotANumber>},
    {"thickness", setInteger<Line, &Line::thickness, 0>},
    {"style", setInteger<Line, &Line::style, 0>},
    {"length", setInteger<Line, &Line::length, NotGiven>},
};

// True when a row of the table took the element.
template <typename Record, size_t Count>
bool apply(const Field<Record> (&fields)[Count], Record& record, const QDomElement& child,
           const Surroundings& surroundings) {
    const QString name = child.tagName();
    for (const Field<Record>& field : fields) {
        if (name == QLatin1String(field.elementName)) {
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
