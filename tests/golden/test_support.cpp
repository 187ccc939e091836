#include "test_support.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <stdexcept>

namespace golden {

namespace {

constexpr char Document[] = "<VelnorRoot><VelnorItems class='canvas' id='c'><width>30</width>"
                            "<height>20</height><dpi>203</dpi></VelnorItems></VelnorRoot>";

} // namespace

GoldenTree::GoldenTree()
    : surroundings{FailureRecords(path(QStringLiteral("results"))),
                   {{QStringLiteral("zint"), QStringLiteral("2.0.0")}},
                   isolation.path(QStringLiteral("."))} {
    startLibrary();
    write(QStringLiteral("versions.txt"), "zint 2.0.0\n");
    write(QStringLiteral("version_dependent.txt"), "");
}

QString GoldenTree::path(const QString& name) const {
    return isolation.path(QStringLiteral("tree/") + name);
}

void GoldenTree::write(const QString& name, const QByteArray& content) {
    QDir().mkpath(QFileInfo(path(name)).absolutePath());
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        throw std::runtime_error("cannot write " + file.fileName().toStdString());
    }
}

QByteArray GoldenTree::read(const QString& file) const {
    QFile opened(file);
    if (!opened.open(QIODevice::ReadOnly)) {
        throw std::runtime_error("cannot read " + file.toStdString());
    }
    return opened.readAll();
}

GoldenCase GoldenTree::makeCase(const QString& name) {
    const QString document = QStringLiteral("cases/shapes/%1.xml").arg(name);
    write(document, Document);
    return GoldenCase::ofDocument(path(document));
}

GoldenCase GoldenTree::makeAcceptedCase(const QString& name) {
    const GoldenCase golden = makeCase(name);
    accept(golden);
    return golden;
}

void GoldenTree::changePicture(const GoldenCase& golden, void (*change)(QImage&)) {
    QImage picture(golden.picture);
    change(picture);
    if (!picture.save(golden.picture)) {
        throw std::runtime_error("cannot write " + golden.picture.toStdString());
    }
}

Outcome GoldenTree::keepPrinted(Outcome (*action)(const GoldenCase&, const Surroundings&,
                                                  QTextStream&),
                                const GoldenCase& golden) {
    QString text;
    QTextStream out(&text);
    const Outcome outcome = action(golden, surroundings, out);
    out.flush();
    printed = text.toStdString();
    return outcome;
}

Outcome GoldenTree::run(const GoldenCase& golden) {
    return keepPrinted(runCase, golden);
}

Outcome GoldenTree::accept(const GoldenCase& golden) {
    return keepPrinted(acceptCase, golden);
}

} // namespace golden
