// The documents that are drawn: the example layouts and the golden cases, found in the tree.
#ifndef VELNOR_TESTS_DETERMINISM_CASES_H
#define VELNOR_TESTS_DETERMINISM_CASES_H

#include <QString>

#include <vector>

struct Case {
    QString name; // "grid/three_columns"; with the suffix of its picture
    QString layout;
    QString images; // empty: beside the document
    QString fonts;  // empty: the folder "fonts" beside the document
    QString values; // empty: none
};

// Sorted by name. Throws when there are no example layouts.
const std::vector<Case>& allCases();

#endif
