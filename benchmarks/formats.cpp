#include "formats.h"

#include "repetitions.h"

#include <QFileInfo>

#include <array>

namespace bench {

namespace {

constexpr double BytesInKib = 1024.0;

struct Format {
    const char* suffix;
    const char* content;
};

constexpr std::array<Format, 6> Formats = {{
    {"png", "32 bits a dot, compressed"},
    {"bmp", "24 bits a dot"},
    {"ppm", "24 bits a dot"},
    {"jpg", "24 bits a dot, with losses"},
    {"pgm", "8 bits a dot"},
    {"pbm", "1 bit a dot, dithered"},
}};

std::string benchmarkOf(const Format& format) {
    return std::string("format/") + format.suffix;
}

class Receipt : public Subject {
public:
    Receipt(const Scenarios& scenarios, const Format& format)
        : handler(Scenarios::example("receipt")),
          picture(scenarios.file(QLatin1String("receipt.") + QLatin1String(format.suffix))) {}

    double run(benchmark::State& state) override {
        const QByteArray file = picture.toUtf8();
        const double taken = millisecondsOf([&] { handler.createImage(file); });
        state.counters["size"] = static_cast<double>(QFileInfo(picture).size()) / BytesInKib;
        return taken;
    }

private:
    Handler handler;
    QString picture;
};

} // namespace

void registerFormats(const Scenarios& scenarios, const Settings& settings) {
    for (const Format& format : Formats) {
        registerBenchmark(benchmarkOf(format), settings.runs,
                          [=] { return std::make_unique<Receipt>(scenarios, format); });
    }
}

void printFormats(const Results& results) {
    std::vector<std::vector<std::string>> rows = {{"receipt as", "content", "ms", "KiB"}};
    for (const Format& format : Formats) {
        const std::string name = benchmarkOf(format);
        if (results.has(name)) {
            rows.push_back({format.suffix, format.content, milliseconds(results.time(name)),
                            milliseconds(results.median(name, "size"))});
        }
    }
    printTable("Formats", rows);
}

} // namespace bench
