// The messages of the library's validation, told apart and put into the words of `check`.
#include "check/lints.h"
#include "check/placeholders.h"
#include "handler/validation_messages.h"

namespace messages = velnor::messages;

namespace {

using tool::Code;
using Element = VelnorDrawableElement;

template <typename Record, QString Record::*Member>
QString textOf(const Element& item) {
    return static_cast<const Record&>(item).*Member;
}

template <typename Record, int Record::*Member>
QString numberOf(const Element& item) {
    return QString::number(static_cast<const Record&>(item).*Member);
}

QString nothing(const Element&) {
    return {};
}

// A message of the library: what its second placeholder holds is known from the item, so that neither
// ids nor values can be taken for the end of a message.
struct Message {
    int kind;
    Code code;
    const char* pattern;
    QString (*value)(const Element& item);
    const char* words; // with the value and what the library chose instead
};

using Image = VelnorDrawableImage;
using Text = VelnorDrawableText;
using Barcode = VelnorDrawableBarcode;
using Rectangle = VelnorDrawableRectangle;
using Ellipse = VelnorDrawableEllipse;
using Line = VelnorDrawableLine;

constexpr char ThicknessWords[] = "thickness is %1; it must be 1 or more";
constexpr char StyleWords[] = "style is %1; it must be 0 or 1";

constexpr Message Messages[] = {
    {velnor::ImageKind, Code::ImageMissing, messages::ImageFileMissing,
     textOf<Image, &Image::filepath>, "there is no file %1"},
    {velnor::TextKind, Code::FontNotNamed, messages::TextWithoutFont, nothing, "has no fontname"},
    {velnor::TextKind, Code::FontSubstituted, messages::FontNotAvailable,
     textOf<Text, &Text::fontname>, "there is no font %1; %2 is used"},
    {velnor::TextKind, Code::BoldMissing, messages::BoldNotAvailable, textOf<Text, &Text::fontname>,
     "%1 has no bold letters; they are imitated"},
    {velnor::TextKind, Code::ItalicMissing, messages::ItalicNotAvailable,
     textOf<Text, &Text::fontname>, "%1 has no italic letters; they are imitated"},
    {velnor::BarcodeKind, Code::BarcodeEmpty, messages::BarcodeWithoutData, nothing, "has no data"},
    {velnor::BarcodeKind, Code::BarcodeType, messages::BarcodeType,
     numberOf<Barcode, &Barcode::barcodeType>, "type is %1; types are 1 to 142"},
    {velnor::BarcodeKind, Code::BarcodeNotHexadecimal, messages::BarcodeNotHexadecimal, nothing,
     "the data are no bytes in hexadecimal with commas between them, and so taken as text"},
    {velnor::RectangleKind, Code::Thickness, messages::RectangleThickness,
     numberOf<Rectangle, &Rectangle::thickness>, ThicknessWords},
    {velnor::RectangleKind, Code::Style, messages::RectangleStyle,
     numberOf<Rectangle, &Rectangle::style>, StyleWords},
    {velnor::EllipseKind, Code::Thickness, messages::EllipseThickness,
     numberOf<Ellipse, &Ellipse::thickness>, ThicknessWords},
    {velnor::EllipseKind, Code::Style, messages::EllipseStyle, numberOf<Ellipse, &Ellipse::style>,
     StyleWords},
    {velnor::LineKind, Code::Thickness, messages::LineThickness, numberOf<Line, &Line::thickness>,
     ThicknessWords},
    {velnor::LineKind, Code::Style, messages::LineStyle, numberOf<Line, &Line::style>, StyleWords},
    {velnor::LineKind, Code::Length, messages::LineLength, numberOf<Line, &Line::length>,
     "length is %1; it must be 1 or more"},
};

// Takes the messages of one item after the other from the front of the whole text.
class MessageReader {
public:
    explicit MessageReader(QString text) : rest(std::move(text)) {}

    // What the library chose instead, or an empty text, where such a message is next; else nothing.
    std::optional<QString> take(const Message& message, const Element& item) {
        constexpr int Chosen = 3; // the number of the placeholder that only the library knows
        const QString mark{QChar(QChar::ObjectReplacementCharacter)};
        const QString known = QString(QLatin1String(message.pattern))
                                  .replace(QLatin1Char('%') + QString::number(Chosen), mark);
        const QString front = known.section(mark, 0, 0);
        const QString back = known.section(mark, 1);
        const QString start = fill(front, item.id, message.value(item));
        if (!rest.startsWith(start)) {
            return std::nullopt;
        }
        const int end = back.isEmpty() ? start.size() : rest.indexOf(back, start.size());
        const QString chosen = rest.mid(start.size(), end - start.size());
        rest = end < 0 ? QString() : rest.mid(end + back.size());
        return chosen;
    }

private:
    static QString fill(const QString& pattern, const QString& id, const QString& value) {
        return pattern.contains(QLatin1String("%2")) ? pattern.arg(id, value) : pattern.arg(id);
    }

    QString rest;
};

QString wordsOf(const Message& message, const QString& value, const QString& chosen) {
    const bool thereIsNoFont = message.code == Code::FontSubstituted && chosen.isEmpty();
    const QString words =
        QLatin1String(thereIsNoFont ? "there is no font %1, nor any other" : message.words);
    const bool isNumber = message.code == Code::Thickness || message.code == Code::Style ||
                          message.code == Code::Length || message.code == Code::BarcodeType;
    const QString shown = isNumber ? value : tool::quoted(value);
    return words.contains(QLatin1String("%2"))   ? words.arg(shown, tool::quoted(chosen))
           : words.contains(QLatin1String("%1")) ? words.arg(shown)
                                                 : words;
}

} // namespace

void tool::addLibraryFindings(const CheckedDocument& document, Findings& findings) {
    MessageReader reader(QString::fromStdString(document.layout().findings()));
    for (const CheckedItem& item : document.items()) {
        for (const Message& message : Messages) {
            if (message.kind != item.parsed->type) {
                continue;
            }
            const auto chosen = reader.take(message, *item.parsed);
            const QString value = message.value(*item.parsed);
            // What a value would make of a placeholder is not known.
            if (chosen && placeholdersIn(value).empty()) {
                findings.add(message.code, item.element, wordsOf(message, value, *chosen));
            }
        }
    }
}
