#include "support/qt_messages.h"

#include <QStringList>

namespace {

QStringList messages;

void keepMessage(QtMsgType, const QMessageLogContext&, const QString& message) {
    messages.append(message);
}

} // namespace

QtMessages::QtMessages() {
    messages.clear();
    previous = qInstallMessageHandler(keepMessage);
}

QtMessages::~QtMessages() {
    qInstallMessageHandler(previous);
}

std::string QtMessages::heard() const {
    return messages.join(QLatin1Char('\n')).toStdString();
}
