// Whether a layout's items can be drawn as asked, with one message for each finding.
#include "document/elements.h"
#include "files/input_file.h"
#include "handler/validation_messages.h"
#include "handler/velnorxml.h"
#include "render/barcode_data.h"
#include "render/gui_application.h"

#include <QFont>
#include <QFontDatabase>
#include <QFontInfo>

#include <algorithm>
#include <cstring>

namespace messages = velnor::messages;

namespace {

constexpr uint LastBarcodeType = 142;
constexpr int HexadecimalInput = 0;
constexpr int LastStyle = 1;

// Collects the messages of one run in the caller's buffer.
class Findings {
public:
    // The last byte of a buffer stays a terminating zero, whatever is appended.
    Findings(char* messageBuffer, int size)
        : buffer(messageBuffer), usable(messageBuffer == nullptr ? 0 : std::max(size, 1) - 1),
          remaining(usable) {
        if (buffer != nullptr && size > 0) {
            std::memset(buffer, 0, static_cast<size_t>(size));
        }
    }

    void add(const QString& message) {
        found = true;
        VelnorXml::writeInfo(buffer, usable, &remaining, message);
    }

    template <typename... Texts>
    void add(const char* message, const Texts&... texts) {
        // All at once: a text that holds "%2" stands as it is.
        add(QString(QLatin1String(message)).arg(texts...));
    }

    int result() const { return found ? -1 : 0; }

private:
    char* buffer;
    int usable;
    int remaining;
    bool found = false;
};

// The checks of one item, by its kind.
class ItemChecks {
public:
    ItemChecks(const QFontDatabase& fontDatabase, Findings& collected)
        : fonts(fontDatabase), findings(collected) {}

    void check(const VelnorDrawableImage& item) {
        if (!velnor::InputFile::exists(item.filepath)) {
            findings.add(messages::ImageFileMissing, item.id, item.filepath);
        }
    }

    void check(const VelnorDrawableText& item) {
        if (item.text.isEmpty()) {
            return;
        }
        if (item.fontname.isEmpty()) {
            findings.add(messages::TextWithoutFont, item.id);
            return;
        }
        const QFont font(item.fontname);
        if (!font.exactMatch() && !VelnorXml::fontFamilyIsAvailable(&fonts, item.fontname)) {
            findings.add(messages::FontNotAvailable, item.id, item.fontname,
                         QFontInfo(font).family());
            return;
        }
        if (item.bold && !VelnorXml::fontFamilyIsBold(&fonts, font.family())) {
            findings.add(messages::BoldNotAvailable, item.id, item.fontname);
        }
        if (item.italic && !VelnorXml::fontFamilyIsItalic(&fonts, font.family())) {
            findings.add(messages::ItalicNotAvailable, item.id, item.fontname);
        }
    }

    void check(const VelnorDrawableBarcode& item) {
        if (item.text.isEmpty()) {
            findings.add(messages::BarcodeWithoutData, item.id);
            return;
        }
        // Unsigned, so that 0 and negative types lie past the end.
        if (static_cast<uint>(item.barcodeType) - 1U >= LastBarcodeType) {
            findings.add(messages::BarcodeType, item.id, QString::number(item.barcodeType));
        }
        if (item.inputmode == HexadecimalInput && !velnor::bytesFromHexList(item.text)) {
            findings.add(messages::BarcodeNotHexadecimal, item.id);
        }
    }

    void check(const VelnorDrawableRectangle& item) {
        checkStroke(item, messages::RectangleThickness, messages::RectangleStyle);
    }

    void check(const VelnorDrawableEllipse& item) {
        checkStroke(item, messages::EllipseThickness, messages::EllipseStyle);
    }

    void check(const VelnorDrawableLine& item) {
        checkStroke(item, messages::LineThickness, messages::LineStyle);
        if (item.length <= 0) {
            findings.add(messages::LineLength, item.id, QString::number(item.length));
        }
    }

private:
    template <typename Shape>
    void checkStroke(const Shape& item, const char* thicknessMessage, const char* styleMessage) {
        if (item.thickness <= 0) {
            findings.add(thicknessMessage, item.id, QString::number(item.thickness));
        }
        if (item.style < 0 || item.style > LastStyle) {
            findings.add(styleMessage, item.id, QString::number(item.style));
        }
    }

    const QFontDatabase& fonts;
    Findings& findings;
};

} // namespace

void VelnorXml::writeInfo(char* buffer, int size, int* remaining, const QString& text) {
    if (*remaining <= 0) {
        return;
    }
    const QByteArray bytes = text.toUtf8();
    std::strncpy(buffer + (size - *remaining), bytes.constData(), static_cast<size_t>(*remaining));
    *remaining -= std::min(static_cast<int>(std::strlen(bytes.constData())), *remaining);
}

int VelnorXml::CheckIsCorrect(const VelnorDrawableCanvas* canvas, char* buffer, int size) {
    Findings findings(buffer, size);
    if (canvas == nullptr) {
        findings.add(QLatin1String(messages::NoCanvas));
        return findings.result();
    }
    if (!velnor::guiApplicationExists()) {
        return -1;
    }
    const QFontDatabase fonts;
    ItemChecks checks(fonts, findings);
    if (canvas->items) {
        for (const auto& item : *canvas->items) {
            const auto checkItem = [&checks](const auto& record) { checks.check(record); };
            if (!velnor::visitItem(*item, checkItem)) {
                findings.add(messages::UnknownKind, item->id);
            }
        }
    }
    return findings.result();
}
