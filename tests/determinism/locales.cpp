#include "locales.h"

#include <QProcess>
#include <QStringList>

void compileLocale(const QString& name, const QString& folder) {
    const QStringList parts = name.split(QLatin1Char('.'));
    QProcess::execute(QStringLiteral("localedef"),
                      {QStringLiteral("--quiet"), QStringLiteral("--no-archive"),
                       QStringLiteral("-i"), parts.first(), QStringLiteral("-f"), parts.last(),
                       folder + QLatin1Char('/') + name});
}
