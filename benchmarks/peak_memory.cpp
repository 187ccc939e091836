#include "peak_memory.h"

#include "documents.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>

#include <algorithm>
#include <array>
#include <cstdio>
#include <stdexcept>

namespace bench {

namespace {

constexpr double KibInMib = 1024.0;

// A line of /proc/self/status, such as "VmRSS:      1234 kB".
long statusKib(const QByteArray& key) {
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly)) {
        throw std::runtime_error("cannot read the status of the process");
    }
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith(key + ':')) {
            return line.mid(key.size() + 1).simplified().split(' ').first().toLong();
        }
    }
    throw std::runtime_error("the status of the process lacks " + key.toStdString());
}

void forgetPeak() {
    QFile references(QStringLiteral("/proc/self/clear_refs"));
    if (!references.open(QIODevice::WriteOnly | QIODevice::Unbuffered) ||
        references.write("5") != 1) {
        throw std::runtime_error("cannot reset the peak of the process");
    }
}

double growthOfOneProcess(const Scenarios& scenarios, const std::string& name) {
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationFilePath(),
                  {QStringLiteral("--peak=") + QString::fromStdString(name),
                   QStringLiteral("--scratch=") + scenarios.file(QString())});
    process.waitForFinished(-1);
    bool isNumber = false;
    const long kib = process.readAllStandardOutput().trimmed().toLong(&isNumber);
    if (process.exitCode() != 0 || !isNumber) {
        throw std::runtime_error("no peak of " + name);
    }
    return static_cast<double>(kib) / KibInMib;
}

} // namespace

void printPeakGrowth(const Scenarios& scenarios, const std::string& name) {
    const std::vector<Scenario> all = scenarios.pictures();
    const auto scenario = std::find_if(all.begin(), all.end(),
                                       [&](const Scenario& each) { return each.name == name; });
    if (scenario == all.end()) {
        throw std::runtime_error("no scenario is called " + name);
    }
    const QByteArray output = scenarios.file(QStringLiteral("peak.png")).toUtf8();
    const Handler small(scenarios.generated("small", smallDocument()));
    const Handler handler(*scenario);
    small.createImage(output);
    forgetPeak();
    const long before = statusKib("VmRSS");
    handler.createImage(output);
    std::printf("%ld\n", statusKib("VmHWM") - before);
}

double peakGrowth(const Scenarios& scenarios, const std::string& name) {
    std::array<double, 3> growths{};
    for (double& growth : growths) {
        growth = growthOfOneProcess(scenarios, name);
    }
    std::sort(growths.begin(), growths.end());
    return growths[1];
}

} // namespace bench
