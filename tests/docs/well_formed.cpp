// Tells whether its input is well-formed XML. Elements may stand side by side without a root.
#include <QByteArray>
#include <QFile>
#include <QXmlStreamReader>

#include <cstdio>

namespace {

const char Prologue[] = "<?xml";

QByteArray withRoot(const QByteArray& text) {
    return text.startsWith(Prologue) ? text : "<snippet>" + text + "</snippet>";
}

} // namespace

int main() {
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly)) {
        return 1;
    }
    QXmlStreamReader reader(withRoot(input.readAll()));
    while (!reader.atEnd()) {
        reader.readNext();
    }
    if (reader.hasError()) {
        std::fprintf(stderr, "line %lld: %s\n", static_cast<long long>(reader.lineNumber()),
                     qPrintable(reader.errorString()));
    }
    return reader.hasError() ? 1 : 0;
}
