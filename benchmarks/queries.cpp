#include "queries.h"

#include "documents.h"
#include "repetitions.h"

#include <velnorxmltoimg.h>

#include <array>
#include <stdexcept>

namespace bench {

namespace {

constexpr int ParameterValues = 1000;

struct Query {
    const char* name;
    const char* benchmark;
};

constexpr std::array<Query, 3> Queries = {{
    {"validation of the receipt", "query/validate_receipt"},
    {"validation of the roll of 1,000 lines", "query/validate_roll"},
    {"parameter file of 1,000 values", "query/parameter_file"},
}};

class Validation : public Subject {
public:
    explicit Validation(const Scenario& scenario) : handler(scenario) {}

    double run(benchmark::State&) override {
        std::array<char, 4096> messages{};
        int result = 0;
        const double taken = millisecondsOf([&] {
            result = xmlToImgCheckCorrect(handler.get(), messages.data(),
                                          static_cast<int>(messages.size()));
        });
        if (result != 0) {
            throw std::runtime_error(std::string("validation finds: ") + messages.data());
        }
        return taken;
    }

private:
    Handler handler;
};

class ParameterFile : public Subject {
public:
    explicit ParameterFile(const Scenarios& scenarios)
        : handler(scenarios.generated("parameters", objectsInARow(ParameterValues))),
          file(scenarios.generated("parameter_values", parameterFile(ParameterValues))
                   .document.toUtf8()) {}

    double run(benchmark::State&) override {
        xmlToImgClearAllDictionary(handler.get());
        int result = 0;
        const double taken = millisecondsOf(
            [&] { result = xmlToImgSetDictionaryFromParamFile(handler.get(), file.constData()); });
        if (result != 0) {
            throw std::runtime_error("the parameter file is not applied");
        }
        return taken;
    }

private:
    Handler handler;
    QByteArray file;
};

} // namespace

void registerQueries(const Scenarios& scenarios, const Settings& settings) {
    registerBenchmark(Queries[0].benchmark, settings.runs,
                      [] { return std::make_unique<Validation>(Scenarios::example("receipt")); });
    registerBenchmark(Queries[1].benchmark, settings.runs, [=] {
        return std::make_unique<Validation>(scenarios.generated("text_roll", textRoll(1000)));
    });
    registerBenchmark(Queries[2].benchmark, settings.runs,
                      [=] { return std::make_unique<ParameterFile>(scenarios); });
}

void printQueries(const Results& results) {
    std::vector<std::vector<std::string>> rows = {{"call", "ms"}};
    for (const Query& query : Queries) {
        if (results.has(query.benchmark)) {
            rows.push_back({query.name, milliseconds(results.time(query.benchmark))});
        }
    }
    printTable("Other calls", rows);
}

} // namespace bench
