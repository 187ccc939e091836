// Letters: whether they can be read, and whether the font has them.
#include "check/lints.h"
#include "library_limits.h"
#include "render/velnorimage.h"
#include "text_coverage.h"

#include <QFontDatabase>
#include <QHash>
#include <QSet>

namespace {

using tool::CheckedItem;
using tool::Code;
using Text = VelnorDrawableText;

constexpr double LeastReadablePoints = 6;

QString points(double size) {
    return QString::number(size, 'f', size < 10 ? 1 : 0);
}

// A font of the library's making, by what makes it another one.
QFont fontOf(const Text& text) {
    QFont font(text.fontname);
    font.setWeight(text.bold ? QFont::Bold : QFont::Normal);
    font.setStyle(text.italic ? QFont::StyleItalic : QFont::StyleNormal);
    return font;
}

// Remembers what each font was asked before: items share their fonts.
class Coverage {
public:
    QVector<uint> missing(const Text& text) {
        const QFont font = fontOf(text);
        Known& known = fonts[font.key()];
        QVector<uint> unknown;
        for (const uint character : text.text.toUcs4()) {
            if (!known.asked.contains(character)) {
                known.asked.insert(character);
                unknown.append(character);
            }
        }
        if (!unknown.isEmpty()) {
            const QString asked = QString::fromUcs4(unknown.constData(), unknown.size());
            for (const uint character : tool::missingCharacters(font, asked)) {
                known.missing.insert(character);
            }
        }
        return among(text.text, known.missing);
    }

private:
    struct Known {
        QSet<uint> asked;
        QSet<uint> missing;
    };

    static QVector<uint> among(const QString& text, const QSet<uint>& characters) {
        QVector<uint> found;
        for (const uint character : text.toUcs4()) {
            if (characters.contains(character) && !found.contains(character)) {
                found.append(character);
            }
        }
        return found;
    }

    QHash<QString, Known> fonts;
};

class TextLints {
public:
    TextLints(const tool::CheckedDocument& checked, tool::Findings& collected)
        : dpi(checked.drawn().canvas().dpi), findings(collected) {}

    void check(const CheckedItem& item) {
        const auto& text = static_cast<const Text&>(*item.drawn);
        if (text.text.size() > velnor::MaximumTextLength) {
            findings.add(Code::TextTooLong, item.element,
                         QStringLiteral("the text is longer than %1 characters and is not drawn")
                             .arg(velnor::MaximumTextLength));
            return;
        }
        if (text.fontsize <= 0) {
            findings.add(Code::FontsizeMissing, item.element,
                         QStringLiteral("has no fontsize; its letters are 16 dots high"));
        }
        checkEffect(item, text);
        checkGlyphs(item, text);
        if (velnor::isVisible(text) && !item.isIncomplete) {
            checkDrawing(item, text);
        }
    }

private:
    void checkEffect(const CheckedItem& item, const Text& text) {
        if (text.width == velnor::NotGiven && text.height > 0) {
            findings.add(Code::NoEffect, item.element,
                         QStringLiteral("height has no effect without a width"));
        }
    }

    // A font that is not there, or not named, is a finding by itself.
    void checkGlyphs(const CheckedItem& item, const Text& text) {
        if (text.fontname.isEmpty() ||
            !VelnorXml::fontFamilyIsAvailable(&database, text.fontname)) {
            return;
        }
        const QVector<uint> missing = coverage.missing(text);
        if (!missing.isEmpty()) {
            findings.add(Code::GlyphMissing, item.element,
                         QStringLiteral("%1 does not have %2")
                             .arg(tool::quoted(text.fontname),
                                  QString::fromStdString(tool::listCharacters(missing))));
        }
    }

    void checkDrawing(const CheckedItem& item, const Text& text) {
        if (text.drawnFontSize == 0) {
            findings.add(Code::TextTooLong, item.element,
                         QStringLiteral("the text is too long for its box and is not drawn"));
        } else {
            checkSize(item, text);
        }
    }

    void checkSize(const CheckedItem& item, const Text& text) {
        constexpr double Rounding = 0.99;
        const double given =
            VelnorImage::pointsOnPaper(VelnorImage::ConvertToPoints(text.fontsize, dpi), dpi);
        if (text.text.trimmed().isEmpty() || text.drawnFontSize >= LeastReadablePoints ||
            text.drawnFontSize >= given * Rounding) {
            return;
        }
        findings.add(Code::TextTiny, item.element,
                     QStringLiteral("the text shrank from %1 to %2 points to fit its box")
                         .arg(QString::number(text.fontsize), points(text.drawnFontSize)));
    }

    const int dpi;
    tool::Findings& findings;
    const QFontDatabase database;
    Coverage coverage;
};

} // namespace

void tool::lintTexts(const CheckedDocument& document, Findings& findings) {
    TextLints lints(document, findings);
    for (const CheckedItem& item : document.items()) {
        const bool hasText = item.drawn->type == velnor::TextKind &&
                             !static_cast<const Text&>(*item.drawn).text.isEmpty();
        if (hasText) {
            lints.check(item);
        }
    }
}
