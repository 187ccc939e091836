// One benchmark of this program: a subject that is made once and run several times.
#ifndef VELNOR_BENCHMARKS_REPETITIONS_H
#define VELNOR_BENCHMARKS_REPETITIONS_H

#include <benchmark/benchmark.h>

#include <chrono>
#include <exception>
#include <functional>
#include <memory>
#include <string>

namespace bench {

template <typename Work>
double millisecondsOf(Work work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    const std::chrono::duration<double, std::milli> taken =
        std::chrono::steady_clock::now() - start;
    return taken.count();
}

class Subject {
public:
    Subject() = default;
    virtual ~Subject() = default;
    Subject(const Subject&) = delete;
    Subject& operator=(const Subject&) = delete;

    // One run, whose figures go into the counters of the state. Gives the milliseconds of what the
    // benchmark is about. Throws std::exception where it fails.
    virtual double run(benchmark::State& state) = 0;
};

// The subject is made when the benchmark begins. One run is one repetition: so what a run compares
// is run alternately, and noise of the machine hits all of it alike. Medians are taken over the
// repetitions.
inline void registerBenchmark(const std::string& name, int runs,
                              const std::function<std::unique_ptr<Subject>()>& make) {
    struct Kept {
        std::unique_ptr<Subject> subject;
        std::string failure; // of the first repetition that failed; the others need not try
    };
    const auto kept = std::make_shared<Kept>();
    const auto body = [kept, make](benchmark::State& state) {
        try {
            if (!kept->subject && kept->failure.empty()) {
                kept->subject = make();
                kept->subject->run(state); // loads what later runs find loaded
            }
            for (auto _ : state) {
                constexpr double MillisecondsInSecond = 1000.0;
                if (!kept->failure.empty()) {
                    state.SkipWithError(kept->failure.c_str());
                    break;
                }
                state.SetIterationTime(kept->subject->run(state) / MillisecondsInSecond);
            }
        } catch (const std::exception& error) {
            kept->failure = error.what();
            state.SkipWithError(error.what());
        }
    };
    benchmark::RegisterBenchmark(name.c_str(), body)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond)
        ->Iterations(1)
        ->Repetitions(runs);
}

} // namespace bench

#endif
