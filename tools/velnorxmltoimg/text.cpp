#include "text.h"

#include <QString>
#include <QTextCodec>

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
