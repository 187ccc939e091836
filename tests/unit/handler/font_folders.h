// What the tests of embedded fonts share: a folder for a document and its fonts, and questions.
#ifndef VELNOR_TESTS_FONT_FOLDERS_H
#define VELNOR_TESTS_FONT_FOLDERS_H

#include "handler/velnorxml.h"

#include "support/scratch_folder.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <QImage>

#include <memory>
#include <string>
#include <vector>

constexpr char Alpha[] = "Alphafonts";
constexpr char Gamma[] = "Gammafonts";

// Leaves the keep flag off and the process-wide list empty.
class FontFolders : public testing::Test {
protected:
    ~FontFolders() override;

    // Writes a file into the folder "fonts" beside the document.
    void writeFont(const char* name, const QByteArray& content) const;
    void removeFont(const char* name) const;
    // A handler of the document beside the folder "fonts".
    std::unique_ptr<VelnorXml> handler() const;
    // A handler whose fonts lie in another folder.
    std::unique_ptr<VelnorXml> handlerOf(const char* folder) const;

    ScratchFolder scratch;
};

// The file names of the process-wide list, in order.
std::vector<std::string> listedNames();
// True when the font database offers the family of this brand.
bool databaseHas(const char* brand);
// The family that a text in the family of this brand is really drawn with.
QString familyDrawnFor(const char* brand);
// A picture of the text in the family of this brand.
QImage drawnText(const char* brand, const char* text);

#endif
