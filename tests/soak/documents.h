// The documents that are drawn: the example layouts and the golden cases, found in the tree, and
// some that are broken or ask for what cannot be drawn.
#ifndef VELNOR_TESTS_SOAK_DOCUMENTS_H
#define VELNOR_TESTS_SOAK_DOCUMENTS_H

#include <string>
#include <vector>

namespace soak {

struct Document {
    std::string layout;
    std::string images; // empty: beside the document
    std::string fonts;  // empty: the folder "fonts" beside the document
    // Files of lines name=value, object.property=value, @object.link=value and params=FILE.
    std::string values;               // empty: none
    std::vector<std::string> objects; // their ids
    bool makesPicture;
};

struct Documents {
    std::vector<Document> examples;
    std::vector<Document> golden;
    std::vector<Document> broken;
};

// Writes the broken ones into the folder.
Documents findDocuments(const std::string& folder);
// Of findDocuments alone.
std::vector<Document> writeBrokenDocuments(const std::string& folder);

} // namespace soak

#endif
