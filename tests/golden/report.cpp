#include "report.h"

#include <QFile>

#include <stdexcept>

namespace golden {

namespace {

QByteArray contentOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        throw std::runtime_error("cannot read " + path.toStdString());
    }
    return file.readAll();
}

QString figure(const char* kind, const QString& picture) {
    const QString label = QString::fromLatin1(kind);
    if (!QFile::exists(picture)) {
        return QStringLiteral("<figure><figcaption>%1</figcaption>none</figure>\n").arg(label);
    }
    const QString data = QString::fromLatin1(contentOf(picture).toBase64());
    return QStringLiteral(
               "<figure><figcaption>%1</figcaption>"
               "<img class=\"%1\" alt=\"%1\" src=\"data:image/png;base64,%2\"></figure>\n")
        .arg(label, data);
}

QString section(const Failure& failure) {
    return QStringLiteral("<section class=\"failure\" id=\"%1\">\n<h2>%1</h2>\n<p>%2</p>\n"
                          "<pre>%3</pre>\n<div class=\"pictures\">\n")
               .arg(failure.name.toHtmlEscaped(), failure.message.toHtmlEscaped(),
                    failure.command.toHtmlEscaped()) +
           figure("expected", failure.expected) + figure("difference", failure.difference) +
           figure("actual", failure.actual) + QLatin1String("</div>\n</section>\n");
}

} // namespace

void writeReport(const QList<Failure>& failures, const QString& page) {
    QString sections;
    for (const Failure& failure : failures) {
        sections += section(failure);
    }
    QString text = QString::fromUtf8(contentOf(QStringLiteral(GOLDEN_FOLDER "/report.html")));
    text.replace(QLatin1String("@COUNT@"), QString::number(failures.size()));
    text.replace(QLatin1String("@FAILURES@"), sections);
    QFile file(page);
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) == -1) {
        throw std::runtime_error("cannot write " + page.toStdString());
    }
}

} // namespace golden
