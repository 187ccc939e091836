#include "stages.h"

#include "api/parsed_layout.h"
#include "files/output_file.h"
#include "render/composition.h"
#include "render/picture_file.h"
#include "repetitions.h"

#include <array>
#include <stdexcept>

namespace bench {

namespace {

constexpr std::array<const char*, 8> Stages = {
    "read and substitute", "parse",  "measure", "lay out", "draw",
    "crop and margins",    "encode", "write"};

std::string benchmarkOf(const Scenario& scenario) {
    return "stages/" + scenario.name;
}

class StageSubject : public Subject {
public:
    StageSubject(const Scenarios& scenarios, const Scenario& scenario)
        : handler(scenario), file(scenarios.file(QStringLiteral("stages.png"))) {}

    double run(benchmark::State& state) override;

private:
    // In the order of Stages.
    std::array<double, Stages.size()> measured();

    Handler handler;
    QString file;
};

std::array<double, Stages.size()> StageSubject::measured() {
    VelnorXml& xml = handler.object();
    const double read = millisecondsOf([&] { xml.ReadXmlApplyTags(); });
    velnor::ParsedLayout layout;
    const double readAndParse = millisecondsOf([&] { layout = velnor::parseLayout(xml); });
    if (!layout.canvas) {
        throw std::runtime_error("a document cannot be parsed");
    }
    std::unique_ptr<velnor::Composition> composition;
    const double measuring = millisecondsOf([&] {
        composition = std::make_unique<velnor::Composition>(*layout.canvas);
        composition->measure();
    });
    const double layingOut = millisecondsOf([&] { composition->layOut(); });
    const double drawing = millisecondsOf([&] { composition->draw(); });
    QImage picture;
    const double cropping = millisecondsOf([&] { picture = composition->picture(); });
    QByteArray bytes;
    const double encoding = millisecondsOf([&] { bytes = velnor::encodePicture(picture, "png"); });
    const double writing = millisecondsOf([&] { velnor::writeOutputFile(file, bytes); });
    return {read, readAndParse - read, measuring, layingOut, drawing, cropping, encoding, writing};
}

double StageSubject::run(benchmark::State& state) {
    const auto taken = measured();
    double sum = 0;
    for (size_t i = 0; i < Stages.size(); ++i) {
        state.counters[Stages[i]] = taken[i];
        sum += taken[i];
    }
    return sum;
}

} // namespace

void registerStages(const Scenarios& scenarios, const Settings& settings) {
    for (const Scenario& example : Scenarios::examples()) {
        registerBenchmark(benchmarkOf(example), settings.runs,
                          [=] { return std::make_unique<StageSubject>(scenarios, example); });
    }
}

void printStages(const Results& results) {
    std::vector<std::string> titles = {"example"};
    titles.insert(titles.end(), Stages.begin(), Stages.end());
    titles.emplace_back("all");
    std::vector<std::vector<std::string>> rows = {titles};
    for (const Scenario& example : Scenarios::examples()) {
        const std::string name = benchmarkOf(example);
        if (!results.has(name)) {
            continue;
        }
        rows.push_back({example.name});
        for (const char* stage : Stages) {
            rows.back().push_back(milliseconds(results.median(name, stage)));
        }
        rows.back().push_back(milliseconds(results.time(name)));
    }
    printTable("Stages of an image, in ms", rows);
}

} // namespace bench
