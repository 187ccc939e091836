// The same surroundings on every machine, and the program's own options.
#ifndef VELNOR_BENCHMARKS_SURROUNDINGS_H
#define VELNOR_BENCHMARKS_SURROUNDINGS_H

#include <QString>

#include <string>

namespace bench {

struct Settings {
    QString scratch;
    int runs = 25;
    bool accept = false; // the library's pictures become the golden files
};

// Keeps the machine's fonts, home and caches out of sight. Called before the application is made.
void isolate(const QString& scratch);

// The option's value in "--name=value", taken out of the arguments; empty where it is not there.
std::string takeOption(int& argc, char** argv, const std::string& name);
bool takeFlag(int& argc, char** argv, const std::string& name);

} // namespace bench

#endif
