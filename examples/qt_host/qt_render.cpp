// Renders one layout document inside a Qt program: qt_render [--output=FILE] LAYOUT [SETTING]...
//
// A SETTING is name=value, object.property=value or @object.link=value. What validation finds is
// printed to standard error, the size of the picture to standard output. Without --output the
// picture goes into a temporary folder. Exit status: 0 rendered, 1 not rendered.
//
// Where there is no display: qt_render -platform offscreen ...
#include <velnorxmltoimg.h>

#include <QCommandLineParser>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QTemporaryDir>
#include <QTextStream>

#include <memory>

namespace {

struct HandlerDeleter {
    void operator()(void* handler) const { xmlToImgFreeHandler(handler); }
};
using Handler = std::unique_ptr<void, HandlerDeleter>;

bool complain(const QString& complaint) {
    QTextStream(stderr) << "qt_render: " << complaint << Qt::endl;
    return false;
}

Handler createHandler(const QString& layout) {
    return Handler(xmlToImgCreateHandlerUnicode(layout.utf16(), layout.size()));
}

// The setter for object tags takes a name without a point as that of a placeholder.
bool setValue(void* handler, const QString& setting) {
    const bool isLink = setting.startsWith(QLatin1Char('@'));
    const int start = isLink ? 1 : 0;
    const int equals = setting.indexOf(QLatin1Char('='));
    if (equals <= start) {
        return complain(QStringLiteral("'%1' is not of the form name=value").arg(setting));
    }
    const QString name = setting.mid(start, equals - start);
    const QString value = setting.mid(equals + 1);
    const auto set =
        isLink ? xmlToImgSetObjectLinkDictionaryUnicode : xmlToImgSetObjectTagDictionaryUnicode;
    if (set(handler, name.utf16(), name.size(), value.utf16(), value.size()) != 0) {
        return complain(QStringLiteral("the document has no place for '%1'").arg(name));
    }
    return true;
}

// Findings do not keep a picture from being made: a missing font, for example, is replaced.
bool validate(void* handler, const QString& layout) {
    QByteArray findings(64 * 1024, '\0');
    if (xmlToImgCheckCorrect(handler, findings.data(), findings.size()) == 0) {
        return true;
    }
    const QString text = QString::fromUtf8(findings.constData());
    complain(text.isEmpty() ? QStringLiteral("'%1' cannot be read").arg(layout) : text.trimmed());
    return !text.isEmpty();
}

// The library answers 0 whether or not it wrote a picture, so only the file itself tells. A file
// from an earlier run is removed first: it must not pass for the new one.
QImage render(void* handler, const QString& output) {
    QFile::remove(output);
    xmlToImgCreateImageUnicode(handler, output.utf16(), output.size());
    return QImage(output);
}

bool renderLayout(const QString& layout, const QStringList& settings, const QString& output) {
    const Handler handler = createHandler(layout);
    for (const QString& setting : settings) {
        if (!setValue(handler.get(), setting)) {
            return false;
        }
    }
    if (!validate(handler.get(), layout)) {
        return false;
    }
    const QImage picture = render(handler.get(), output);
    if (picture.isNull()) {
        return complain(QStringLiteral("no picture was written to '%1'").arg(output));
    }
    QTextStream(stdout) << picture.width() << " x " << picture.height() << Qt::endl;
    return true;
}

} // namespace

int main(int argc, char** argv) {
    const QGuiApplication application(argc, argv);
    // After the application is made: the library takes this one, and the call returns at once.
    xmlToImgInitializeQtNoReturn();

    const QCommandLineOption outputOption(QStringLiteral("output"), QStringLiteral("The picture."),
                                          QStringLiteral("file"));
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOption(outputOption);
    parser.addPositionalArgument(QStringLiteral("layout"), QStringLiteral("The layout document."));
    parser.addPositionalArgument(QStringLiteral("settings"), QStringLiteral("name=value ..."),
                                 QStringLiteral("[settings...]"));
    parser.process(application);
    QStringList settings = parser.positionalArguments();
    if (settings.isEmpty()) {
        parser.showHelp(1);
    }
    const QString layout = settings.takeFirst();

    const QTemporaryDir folder;
    const QString output = parser.isSet(outputOption)
                               ? parser.value(outputOption)
                               : folder.filePath(QStringLiteral("picture.png"));
    return renderLayout(layout, settings, output) ? 0 : 1;
}
