// The names of a batch's pictures: a template that each row fills.
#ifndef VELNOR_TOOL_OUTPUT_NAME_H
#define VELNOR_TOOL_OUTPUT_NAME_H

#include "batch/row.h"

namespace tool {

// "out/{date}/{number:06}.png": {column} is the row's value; {number} the row's number, unless a
// column has that name; {{ and }} are braces.
class OutputName {
public:
    // Fails with Usage for a template that is none.
    explicit OutputName(const std::string& nameTemplate);

    // Fails with Usage where the template names a column that is not among them.
    void requireColumns(const std::vector<std::string>& columns);

    // Fails, for this row alone, where a value is missing or has no place in a name.
    std::string expand(const Row& row) const;

    // What all names begin with, up to the folder of the first placeholder: not empty.
    const std::string& folder() const { return fixedFolder; }

    // Whether rows name folders too.
    bool makesFolders() const;

    // The template where its end tells the format of all pictures; otherwise empty.
    std::string formatSample() const;

    // Two rows cannot have one name: all that changes in it is the number.
    bool isUnique() const;

private:
    struct Piece {
        bool isColumn;
        std::string text; // as it is, or the column's name
        size_t width;     // padded with zeros
    };
    size_t parseColumn(const std::string& text, size_t begin);
    void addLiteral(char character);
    void setFolder();
    std::string valueOf(const Piece& piece, const Row& row) const;
    void requireInside(const std::string& name) const;

    std::string wholeTemplate;
    std::vector<Piece> pieces;
    std::string fixedFolder;
    size_t folderSize = 0; // of the first piece, with its slash
    bool numberIsColumn = false;
};

} // namespace tool

#endif
