#include "pictures.h"

#include "encodings.h"
#include "peak_memory.h"
#include "plan_writing.h"
#include "repetitions.h"

#include <QFile>

#include <cstdio>
#include <stdexcept>

namespace bench {

namespace {

constexpr double BytesInMib = 1024.0 * 1024.0;

QString goldenFile(const std::string& name) {
    return QStringLiteral(BENCH_FOLDER "/golden/%1.png").arg(QString::fromStdString(name));
}

QByteArray contentOf(const QString& name) {
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// As the library has it before it is encoded.
QImage loadFinished(const QString& file) {
    QImage picture = QImage(file).convertToFormat(QImage::Format_ARGB32_Premultiplied);
    if (picture.isNull()) {
        throw std::runtime_error("cannot read " + file.toStdString());
    }
    return picture;
}

void saveOrThrow(const QImage& picture, const QString& file) {
    if (!picture.save(file)) {
        throw std::runtime_error("cannot write " + file.toStdString());
    }
}

class PictureSubject : public Subject {
public:
    PictureSubject(const Scenarios& scenarios, const Scenario& scenario, const Settings& settings);
    double run(benchmark::State& state) override;

private:
    void check(const QImage& paintedPicture) const;

    Handler handler;
    QString made;
    QString saved;
    QString painted;
    QString golden;
    QByteArray goldenBytes;
    QImage finished;
    Plan plan;
    double peak;
};

PictureSubject::PictureSubject(const Scenarios& scenarios, const Scenario& scenario,
                               const Settings& settings)
    : handler(scenario), made(scenarios.file(QStringLiteral("library.png"))),
      saved(scenarios.file(QStringLiteral("saved.png"))),
      painted(scenarios.file(QStringLiteral("painted.png"))), golden(goldenFile(scenario.name)),
      peak(peakGrowth(scenarios, scenario.name)) {
    handler.createImage(made.toUtf8());
    if (settings.accept) {
        QFile::remove(golden);
        QFile::copy(made, golden);
    }
    goldenBytes = contentOf(golden);
    finished = loadFinished(made);
    plan = makePlan(handler.object(), finished);
}

double PictureSubject::run(benchmark::State& state) {
    QImage paintedPicture;
    int encodings = 0;
    const double library = millisecondsOf([&] {
        const EncodingRecorder recorder;
        handler.createImage(made.toUtf8());
        encodings = recorder.mostForOneSymbol();
    });
    const double save = millisecondsOf([&] { saveOrThrow(finished, saved); });
    const double paint = millisecondsOf([&] {
        paintedPicture = paintPlan(plan);
        saveOrThrow(paintedPicture, painted);
    });
    check(paintedPicture);
    state.counters["library"] = library;
    state.counters["save"] = save;
    state.counters["over save"] = library / save;
    state.counters["painted"] = paint;
    state.counters["over painted"] = library / paint;
    state.counters["encodings"] = encodings;
    state.counters["peak"] = peak;
    state.counters["picture"] = static_cast<double>(finished.sizeInBytes()) / BytesInMib;
    return library;
}

void PictureSubject::check(const QImage& paintedPicture) const {
    if (contentOf(made) != goldenBytes) {
        throw std::runtime_error("the library's picture is not " + golden.toStdString());
    }
    if (paintedPicture != finished) {
        throw std::runtime_error("the painted picture has other dots than the library's");
    }
}

void addTargets(const Results& results, Targets& targets) {
    constexpr double PicturesAtOnce = 3.0;
    constexpr double BesidePictures = 4.0; // MiB
    constexpr double EncodingsOfASymbol = 2.0;
    constexpr double BesideSaving = 1.10;
    for (const Scenario& example : Scenarios::examples()) {
        const std::string name = "picture/" + example.name;
        if (results.has(name)) {
            targets.add(example.name + ", library against saving alone, time",
                        results.median(name, "over save"), BesideSaving);
        }
    }
    const std::string metre = "picture/growing_metre";
    if (results.has(metre)) {
        targets.add("growing metre, peak growth in MiB", results.median(metre, "peak"),
                    PicturesAtOnce * results.median(metre, "picture") + BesidePictures);
    }
    const std::string sheet = "picture/barcode_sheet";
    if (results.has(sheet)) {
        targets.add("sheet of barcodes, encodings of one symbol",
                    results.median(sheet, "encodings"), EncodingsOfASymbol);
    }
}

} // namespace

void registerPictures(const Scenarios& scenarios, const Settings& settings) {
    for (const Scenario& scenario : scenarios.pictures()) {
        registerBenchmark("picture/" + scenario.name, settings.runs, [=] {
            return std::make_unique<PictureSubject>(scenarios, scenario, settings);
        });
    }
}

void printPictures(const Scenarios& scenarios, const Results& results, Targets& targets) {
    std::vector<std::vector<std::string>> rows = {
        {"scenario", "library ms", "save ms", "library / save", "painted ms", "library / painted",
         "peak growth MiB", "picture MiB"}};
    for (const Scenario& scenario : scenarios.pictures()) {
        const std::string name = "picture/" + scenario.name;
        if (results.has(name)) {
            const auto median = [&](const char* counter) { return results.median(name, counter); };
            rows.push_back({scenario.name, milliseconds(median("library")),
                            milliseconds(median("save")), ratio(median("over save")),
                            milliseconds(median("painted")), ratio(median("over painted")),
                            mebibytes(median("peak")), mebibytes(median("picture"))});
        }
    }
    printTable("One image", rows);
    addTargets(results, targets);
}

void writeExamplePlans(const Scenarios& scenarios, const QString& folder) {
    const QString picture = scenarios.file(QStringLiteral("library.png"));
    for (const Scenario& example : Scenarios::examples()) {
        const Handler handler(example);
        handler.createImage(picture.toUtf8());
        const QString file = folder + QLatin1Char('/') + QString::fromStdString(example.name) +
                             QLatin1String(".plan");
        if (!writePlan(file, makePlan(handler.object(), loadFinished(picture)))) {
            throw std::runtime_error("cannot write " + file.toStdString());
        }
    }
}

} // namespace bench
