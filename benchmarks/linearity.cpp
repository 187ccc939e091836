#include "linearity.h"

#include "document/dom_loading.h"
#include "documents.h"
#include "handler/velnorxml.h"
#include "repetitions.h"

#include <velnorxmltoimg.h>

#include <QDomDocument>

#include <array>
#include <stdexcept>

namespace bench {

namespace {

using Work = std::function<void()>;

// Two works in turn, each so often that its time stands out of the clock's. Each is done once
// before it counts: the allocator tidies up what the other one left.
class Pair : public Subject {
public:
    Pair(Work firstWork, Work secondWork, int timesInARun)
        : first(std::move(firstWork)), second(std::move(secondWork)), times(timesInARun) {}

    double run(benchmark::State& state) override {
        const double firstTaken = measured(first);
        const double secondTaken = measured(second);
        state.counters["first"] = firstTaken;
        state.counters["second"] = secondTaken;
        state.counters["ratio"] = secondTaken / firstTaken;
        return secondTaken;
    }

private:
    double measured(const Work& work) const {
        work();
        return millisecondsOf([&] {
                   for (int i = 0; i < times; ++i) {
                       work();
                   }
               }) /
               times;
    }

    Work first;
    Work second;
    int times;
};

Work imageOf(const Scenarios& scenarios, const Scenario& scenario) {
    const auto handler = std::make_shared<Handler>(scenario);
    const QByteArray file = scenarios.file(QStringLiteral("growth.png")).toUtf8();
    return [=] { handler->createImage(file); };
}

Work substitution(const Scenarios& scenarios, int tags) {
    Scenario scenario = scenarios.generated("tagged_lines", taggedLines(5000));
    for (int i = 0; i < tags; ++i) {
        const QByteArray number = QByteArray::number(i);
        scenario.values.push_back("tag" + number + "=value of " + number);
    }
    const auto handler = std::make_shared<Handler>(scenario);
    return [=] {
        if (handler->object().ReadXmlApplyTags().isEmpty()) {
            throw std::runtime_error("the tagged lines are not read");
        }
    };
}

QByteArray lastOf(int objects) {
    return "object" + QByteArray::number(objects - 1) + ".value";
}

// As a host does it: the handler reads the document each time.
Work lookUp(const Scenario& scenario, int objects) {
    const auto handler = std::make_shared<Handler>(scenario);
    const QByteArray name = lastOf(objects);
    return [=] {
        std::array<char, 64> value{};
        if (xmlToImgGetObjectLinkDictionary(handler->get(), name.constData(), value.data(),
                                            static_cast<int>(value.size())) != 0) {
            throw std::runtime_error("an object is not found");
        }
    };
}

// In a document that is read already.
Work lookUpInTree(const Scenario& scenario, int objects) {
    QDomDocument tree;
    if (!velnor::loadXml(tree, Handler(scenario).object().ReadXmlApplyTags())) {
        throw std::runtime_error("a document cannot be parsed");
    }
    const QString name = QString::fromLatin1(lastOf(objects));
    return [=] {
        QString value;
        QString resolvedName;
        if (VelnorXml::findValue(tree, name, value, resolvedName, true) != 0) {
            throw std::runtime_error("an object is not found");
        }
    };
}

Scenario nested(const Scenarios& scenarios, int depth) {
    return scenarios.generated("nested_" + std::to_string(depth), nestedObjects(depth));
}

Scenario inARow(const Scenarios& scenarios, int objects) {
    return scenarios.generated("objects_" + std::to_string(objects), objectsInARow(objects));
}

Work texts(const Scenarios& scenarios, int count) {
    return imageOf(scenarios,
                   scenarios.generated("texts_" + std::to_string(count), textField(count)));
}

using PairPointer = std::unique_ptr<Pair>;

PairPointer pairOf(Work first, Work second, int timesInARun) {
    return std::make_unique<Pair>(std::move(first), std::move(second), timesInARun);
}

struct Comparison {
    const char* title;
    const char* benchmark;
    const char* first;
    const char* second;
    double limit;
    bool takesLong;
    PairPointer (*make)(const Scenarios& scenarios);
};

constexpr double TimesForTenfold = 11.0;

const std::array<Comparison, 7> Comparisons = {{
    {"items", "growth/items", "1,000 texts", "10,000 texts", TimesForTenfold, true,
     [](const Scenarios& all) { return pairOf(texts(all, 1000), texts(all, 10000), 1); }},
    {"tags on 5,000 lines", "growth/tags", "100 tags", "1,000 tags", TimesForTenfold, true,
     [](const Scenarios& all) {
         return pairOf(substitution(all, 100), substitution(all, 1000), 1);
     }},
    {"look-up of a nested object", "growth/depth", "20 deep", "200 deep", TimesForTenfold, false,
     [](const Scenarios& all) {
         return pairOf(lookUp(nested(all, 20), 20), lookUp(nested(all, 200), 200), 20);
     }},
    {"look-up of a nested object in the tree", "growth/depth_in_tree", "20 deep", "200 deep",
     TimesForTenfold, false,
     [](const Scenarios& all) {
         return pairOf(lookUpInTree(nested(all, 20), 20), lookUpInTree(nested(all, 200), 200), 200);
     }},
    {"look-up among objects", "growth/objects", "1,000 objects", "10,000 objects", TimesForTenfold,
     false,
     [](const Scenarios& all) {
         return pairOf(lookUp(inARow(all, 1000), 1000), lookUp(inARow(all, 10000), 10000), 1);
     }},
    {"look-up among objects in the tree", "growth/objects_in_tree", "1,000 objects",
     "10,000 objects", TimesForTenfold, false,
     [](const Scenarios& all) {
         return pairOf(lookUpInTree(inARow(all, 1000), 1000),
                       lookUpInTree(inARow(all, 10000), 10000), 20);
     }},
    {"growing metre", "growth/metre", "height given", "growing", 1.3, false,
     [](const Scenarios& all) {
         return pairOf(imageOf(all, all.generated("metre_of_given_height", metreOfGivenHeight())),
                       imageOf(all, all.generated("growing_metre", growingMetre())), 1);
     }},
}};

} // namespace

void registerLinearity(const Scenarios& scenarios, const Settings& settings) {
    for (const Comparison& comparison : Comparisons) {
        const int runs = comparison.takesLong ? settings.runs / 5 + 2 : settings.runs;
        registerBenchmark(comparison.benchmark, runs, [=] { return comparison.make(scenarios); });
    }
}

void printLinearity(const Results& results, Targets& targets) {
    std::vector<std::vector<std::string>> rows = {
        {"what grows", "from", "ms", "to", "ms", "times"}};
    for (const Comparison& comparison : Comparisons) {
        const std::string name = comparison.benchmark;
        if (results.has(name)) {
            const double times = results.median(name, "ratio");
            rows.push_back({comparison.title, comparison.first,
                            milliseconds(results.median(name, "first")), comparison.second,
                            milliseconds(results.median(name, "second")), ratio(times)});
            targets.add(std::string(comparison.title) + ", " + comparison.second + " against " +
                            comparison.first + ", time",
                        times, comparison.limit);
        }
    }
    printTable("Growth", rows);
}

} // namespace bench
