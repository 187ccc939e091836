// soak [--images N | --minutes M] [--seed S] [--threads N]
//
// Works for a long time as a host does, with one random choice after the other, and measures its own
// process meanwhile. The exit status is 0 when nothing grew and nothing was left. The same seed, on
// one thread, makes the same choices.
#include "measurements.h"
#include "options.h"
#include "surroundings.h"
#include "verdict.h"
#include "worker.h"

#include <algorithm>
#include <chrono>
#include <exception>
#include <future>
#include <iomanip>
#include <iostream>
#include <stdexcept>

#include <malloc.h>

using namespace soak;

namespace {

using Clock = std::chrono::steady_clock;

constexpr long LongRound = 500; // images between two measurements; the warm-up is whole rounds
constexpr long ShortRound = 100;
constexpr long ImagesOfShortRuns = 2500;
constexpr long TableLines = 20;

class Run {
public:
    Run(const Options& given, Host& sharedHost, const Surroundings& ownSurroundings)
        : options(given), host(sharedHost), surroundings(ownSurroundings), seeds(given.seed) {}

    Course go() {
        // What Qt and the library make once is there before the first measurement.
        Worker(host, nextSeed(), "picture").drawExamples();
        measure();
        while (progress() < 1) {
            drawRound();
            measure();
        }
        return course;
    }

private:
    // From 0 to 1.
    double progress() const {
        if (options.minutes == 0) {
            return static_cast<double>(images) / static_cast<double>(options.images);
        }
        return std::chrono::duration<double>(Clock::now() - start) /
               std::chrono::minutes(options.minutes);
    }

    long roundSize() const {
        const bool isShort = options.minutes == 0 && options.images <= ImagesOfShortRuns;
        const long size = isShort ? ShortRound : LongRound;
        return options.minutes == 0 ? std::min(size, options.images - images) : size;
    }

    void drawRound() {
        const long size = roundSize();
        if (options.threads == 1) {
            Worker(host, nextSeed(), "picture").draw(size);
        } else {
            drawOnThreads(size);
        }
        images += size;
    }

    void drawOnThreads(long size) {
        std::vector<std::future<void>> threads;
        for (int i = 0; i < options.threads; ++i) {
            const long share = size * (i + 1) / options.threads - size * i / options.threads;
            threads.push_back(std::async(std::launch::async, [this, share, i, seed = nextSeed()] {
                Worker(host, seed, "picture" + std::to_string(i)).draw(share);
            }));
        }
        for (std::future<void>& thread : threads) {
            thread.get();
        }
    }

    std::uint32_t nextSeed() { return static_cast<std::uint32_t>(seeds.below(UINT32_MAX)); }

    // Between two rounds there is no handler and no registered font.
    void measure() {
        const bool keeps = host.keepsFonts;
        switchKeeping(host, false);
        Measurement now = measureProcess();
        switchKeeping(host, keeps);
        now.images = images;
        now.files = surroundings.filesLeft();
        course.add(now);
        if (progress() >= nextLine || images == WarmUpImages || progress() >= 1) {
            print(now);
            nextLine = progress() + 1.0 / TableLines;
        }
    }

    void print(const Measurement& now) const {
        if (images == 0) {
            std::cout << "  images  resident KiB  anonymous KiB  held KiB  descriptors  threads"
                         "  files\n";
        }
        std::cout << std::setw(8) << now.images << std::setw(14) << now.resident << std::setw(15)
                  << now.anonymous << std::setw(10) << now.held << std::setw(13) << now.descriptors
                  << std::setw(9) << now.threads << std::setw(7) << now.files << std::endl;
    }

    const Options& options;
    Host& host;
    const Surroundings& surroundings;
    Random seeds;
    const Clock::time_point start = Clock::now();
    long images = 0;
    double nextLine = 0;
    Course course;
};

bool report(const Course& course) {
    const std::vector<std::string> found = complaints(course);
    for (const std::string& complaint : found) {
        std::cout << complaint << '\n';
    }
    std::cout << summary(course) << std::endl;
    return found.empty();
}

bool soakWith(const Options& options) {
    // Only from one arena does malloc give everything back when it is asked to, see measureProcess.
    mallopt(M_ARENA_MAX, 1);
    std::cout << "seed " << options.seed << ", threads " << options.threads << std::endl;
    const Surroundings surroundings;
    const Documents documents = findDocuments(surroundings.documentFolder());
    startLibrary();
    Host host{documents, surroundings.outputFolder(), {}};
    return report(Run(options, host, surroundings).go());
}

} // namespace

int main(int argc, char** argv) {
    try {
        return soakWith(optionsFrom(argc, argv)) ? 0 : 1;
    } catch (const std::invalid_argument& wrong) {
        std::cerr << "soak: cannot understand " << wrong.what()
                  << "\nusage: soak [--images N | --minutes M] [--seed S] [--threads N]\n";
        return 2;
    } catch (const std::exception& error) {
        std::cout << "FAILED: " << error.what() << std::endl;
        return 1;
    }
}
