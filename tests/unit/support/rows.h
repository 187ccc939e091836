// Rows of parametrised tests: the rule that a row states is the name of its test.
#ifndef VELNOR_TESTS_ROWS_H
#define VELNOR_TESTS_ROWS_H

#include <gtest/gtest.h>

#include <ostream>
#include <string>

struct Row {
    const char* rule; // letters and digits only
};

inline std::ostream& operator<<(std::ostream& out, const Row& row) {
    return out << row.rule;
}

struct RuleAsName {
    template <typename AnyRow>
    std::string operator()(const testing::TestParamInfo<AnyRow>& info) const {
        return info.param.rule;
    }
};

#endif
