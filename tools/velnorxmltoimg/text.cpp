#include "text.h"

#include <QString>
#include <QTextCodec>

#include <array>
#include <cstdio>

namespace {

// C0, DEL and C1, the last of which are two bytes of UTF-8. Gives the bytes of the character, or 0.
size_t controlCharacterAt(const std::string& text, size_t at) {
    const auto byte = static_cast<unsigned char>(text[at]);
    if (byte < 0x20 || byte == 0x7f) {
        return 1;
    }
    const bool isC1 = byte == 0xc2 && at + 1 < text.size() &&
                      static_cast<unsigned char>(text[at + 1]) >= 0x80 &&
                      static_cast<unsigned char>(text[at + 1]) < 0xa0;
    return isC1 ? 2 : 0;
}

std::string escaped(unsigned char character) {
    switch (character) {
    case '\n':
        return "\\n";
    case '\r':
        return "\\r";
    case '\t':
        return "\\t";
    default:
        std::array<char, 8> text{};
        std::snprintf(text.data(), text.size(), "\\x%02x", character);
        return text.data();
    }
}

} // namespace

bool tool::isText(const std::string& bytes) {
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    QTextCodec::codecForName("UTF-8")->toUnicode(bytes.data(), static_cast<int>(bytes.size()),
                                                 &state);
    return state.invalidChars == 0 && state.remainingChars == 0 &&
           bytes.find('\0') == std::string::npos;
}

std::optional<std::string> tool::toLatin1(const std::string& utf8) {
    const QString text = QString::fromStdString(utf8);
    const QByteArray bytes = text.toLatin1();
    if (QString::fromLatin1(bytes) != text) {
        return std::nullopt;
    }
    return bytes.toStdString();
}

std::string tool::fromLatin1(const std::string& bytes) {
    return QString::fromLatin1(bytes.data(), static_cast<int>(bytes.size())).toStdString();
}

bool tool::hasControlCharacter(const std::string& utf8) {
    for (size_t at = 0; at < utf8.size(); ++at) {
        if (controlCharacterAt(utf8, at) != 0) {
            return true;
        }
    }
    return false;
}

std::string tool::printable(const std::string& utf8) {
    std::string line;
    for (size_t at = 0; at < utf8.size(); ++at) {
        const size_t size = controlCharacterAt(utf8, at);
        if (size == 0) {
            line += utf8[at];
        } else {
            at += size - 1;
            line += escaped(static_cast<unsigned char>(utf8[at]));
        }
    }
    return line;
}
