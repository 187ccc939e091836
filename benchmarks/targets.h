// What is to be reached, and whether it was.
#ifndef VELNOR_BENCHMARKS_TARGETS_H
#define VELNOR_BENCHMARKS_TARGETS_H

#include <string>
#include <vector>

namespace bench {

class Targets {
public:
    // Met where the measured value is not above the limit.
    void add(const std::string& name, double measured, double limit);

    // One line for each, appended to the file; on standard output where no file is named. Throws
    // std::runtime_error where the file cannot be written.
    void print(const std::string& file) const;

private:
    std::vector<std::string> lines;
};

} // namespace bench

#endif
