#include "targets.h"

#include "results.h"

#include <fstream>
#include <iostream>
#include <stdexcept>

void bench::Targets::add(const std::string& name, double measured, double limit) {
    lines.push_back(name + ": " + ratio(measured) + ", limit " + ratio(limit) + ", " +
                    (measured <= limit ? "met" : "missed"));
}

void bench::Targets::print(const std::string& file) const {
    std::ofstream opened;
    if (!file.empty()) {
        opened.open(file, std::ios::app);
    }
    std::ostream& out = file.empty() ? std::cout : opened;
    for (const std::string& line : lines) {
        out << line << '\n';
    }
    if (!out.flush()) {
        throw std::runtime_error("cannot write " + file);
    }
}
