#include "scenarios.h"

#include "documents.h"
#include "photograph.h"

#include <velnorxmltoimg.h>

#include <QFile>

#include <stdexcept>

namespace bench {

namespace {

constexpr int Placeholders = 500;
constexpr int ObjectTags = 200;

QByteArray contentOf(const QString& name) {
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) {
        throw std::runtime_error("cannot read " + name.toStdString());
    }
    return file.readAll();
}

std::vector<QByteArray> valuesIn(const QString& name) {
    std::vector<QByteArray> values;
    for (const QByteArray& line : contentOf(name).split('\n')) {
        if (!line.isEmpty() && !line.startsWith('#')) {
            values.push_back(line);
        }
    }
    return values;
}

} // namespace

Scenarios::Scenarios(const QString& scratchFolder) : folder(scratchFolder) {}

void Scenarios::writeOnce(const QString& name, const QByteArray& bytes) const {
    QFile target(file(name));
    if (target.exists()) {
        return;
    }
    if (!target.open(QIODevice::WriteOnly) || target.write(bytes) != bytes.size()) {
        throw std::runtime_error("cannot write " + target.fileName().toStdString());
    }
}

Scenario Scenarios::generated(const std::string& name, const QByteArray& document) const {
    const QString fileName = QString::fromStdString(name) + QLatin1String(".xml");
    writeOnce(fileName, document);
    return {name, file(fileName), {}};
}

Scenario Scenarios::example(const std::string& name) {
    const QString stem = QStringLiteral(BENCH_LAYOUTS "/") + QString::fromStdString(name);
    return {name, stem + QLatin1String(".xml"), valuesIn(stem + QLatin1String(".values"))};
}

std::vector<Scenario> Scenarios::examples() {
    return {example("receipt"), example("parking_ticket"), example("boarding_pass"),
            example("museum_label"), example("bank_slip")};
}

Scenario Scenarios::filledForm() const {
    Scenario scenario = generated("filled_form", form(Placeholders, ObjectTags));
    for (int i = 0; i < Placeholders; ++i) {
        const QByteArray number = QByteArray::number(i);
        scenario.values.push_back("tag" + number + "=value" + number);
    }
    for (int i = 0; i < ObjectTags; ++i) {
        const QByteArray number = QByteArray::number(i);
        scenario.values.push_back("object" + number + ".text=Object " + number + " & its value");
    }
    return scenario;
}

Scenario Scenarios::photograph() const {
    const QString name = file(QStringLiteral("photograph_source.png"));
    if (!QFile::exists(name) && !makePhotograph(4000, 3000).save(name)) {
        throw std::runtime_error("cannot write the photograph");
    }
    return generated("photograph", photographPage("photograph_source.png"));
}

std::vector<Scenario> Scenarios::pictures() const {
    std::vector<Scenario> all = examples();
    all.push_back(generated("barcode_sheet", barcodeSheet()));
    all.push_back(generated("text_roll", textRoll(1000)));
    all.push_back(photograph());
    all.push_back(generated("growing_metre", growingMetre()));
    all.push_back(generated("metre_of_given_height", metreOfGivenHeight()));
    all.push_back(filledForm());
    return all;
}

Handler::Handler(const Scenario& scenario)
    : handle(xmlToImgCreateHandlerWithDirs(scenario.document.toUtf8().constData(), nullptr,
                                           BENCH_LAYOUTS "/fonts")) {
    if (handle == nullptr) {
        throw std::runtime_error("no handler of " + scenario.name);
    }
    for (const QByteArray& value : scenario.values) {
        setValue(value);
    }
}

Handler::~Handler() {
    xmlToImgFreeHandler(handle);
}

void Handler::setValue(const QByteArray& setting) const {
    const bool isLink = setting.startsWith('@');
    const int equals = setting.indexOf('=');
    const QByteArray name = setting.left(equals).mid(isLink ? 1 : 0);
    const QByteArray value = setting.mid(equals + 1);
    const auto set = isLink ? xmlToImgSetObjectLinkDictionary : xmlToImgSetObjectTagDictionary;
    if (set(handle, name.constData(), value.constData()) != 0) {
        throw std::runtime_error("cannot set " + setting.toStdString());
    }
}

void Handler::createImage(const QByteArray& file) const {
    xmlToImgCreateImage(handle, file.constData());
    if (!QFile::exists(QString::fromUtf8(file))) {
        throw std::runtime_error("no picture was written to " + file.toStdString());
    }
}

} // namespace bench
