// Every limit of the library, each far beyond what a real printout needs. Beyond them a call fails or
// an item is left out, rather than the host's memory, stack or time.
#ifndef VELNOR_LIBRARY_LIMITS_H
#define VELNOR_LIBRARY_LIMITS_H

#include <QtGlobal>

namespace velnor {

// Documents and parameter files. Beyond any of these they do not load.

// The file, the characters of its text once the placeholders are replaced, and those of the names and
// values of a parameter file.
constexpr qint64 MaximumDocumentSize = 16LL * 1024 * 1024;

// Elements inside one another: the tree is built and destroyed recursively, and the stack is the
// host's. The same for parentheses in the content model of a document type.
constexpr int MaximumNesting = 256;

// Elements, attributes, comments and the like: each takes some 200 bytes of the tree.
constexpr int MaximumNodes = 500000;

// Characters that references to entities expand to, all together, those inside entities included.
constexpr int MaximumExpansion = 16 * 1024 * 1024;

// Characters that Qt goes through to find the names of entities in entities: each value, and 256 more,
// once for every entity declared up to it. Some 4,000 entities of usual length reach it. So does what
// Qt moves to replace quotes in entities.
constexpr qint64 MaximumEntitySearch = 2LL * 1024 * 1024 * 1024;

constexpr int MaximumItems = 50000;

// Items. Beyond any of these the item is not drawn.

// Characters of a text, in UTF-16 units. At 8 x 15 dots each they fill the largest surface.
constexpr int MaximumTextLength = 2 * 1024 * 1024;

// Characters that are measured while one text shrinks: its length in each round. What then does not
// fit yet is not drawn. A text of 60,000 characters may still shrink in all of the 123 rounds below.
constexpr int MaximumShrinkWork = 8 * 1024 * 1024;

// Bytes of a barcode's data before its escapes are read. No symbology holds a tenth of it.
constexpr int MaximumBarcodeData = 128 * 1024;

// A picture that an item shows, taken from the header of its file, or a barcode.
constexpr qint64 MaximumPictureDots = 64LL * 1000 * 1000;
constexpr qint64 MaximumPictureFileSize = 256LL * 1024 * 1024;

// Bytes of pictures that are kept from measuring to drawing. Those beyond are decoded twice.
constexpr qint64 MaximumKeptPictures = 64LL * 1024 * 1024;

// What is counted in a picture file before it is decoded. In a JPEG: its scans, of which each takes the
// time of a picture, and its segments, for each of which libjpeg walks over those before. In a PNG: its
// compressed texts, of which each takes 12 MB, its colour profiles, of which each takes milliseconds,
// and its chunks.
constexpr int MaximumPictureScans = 100;
constexpr int MaximumPictureSegments = 10000;
constexpr int MaximumPictureTexts = 16;
constexpr int MaximumPictureChunks = 100000;

// Font size in dots of a text with letters of a face without outlines: each is a picture of its own.
constexpr int MaximumPicturedLetter = 512;

// Rounds of shrinking a text. Every box of a size of 0 or more needs 123 at most.
constexpr int MaximumShrinkRounds = 1000;

// The output: the canvas, the part of it that is kept, or that part with its margins. Beyond it
// there is no picture.
constexpr qint64 MaximumSurfaceDots = 256LL * 1000 * 1000;

// What lies beside the fonts may be larger. It is no font.
constexpr qint64 MaximumFontFileSize = 128LL * 1024 * 1024;

// Bytes of a text that a wide function hands back: a size near 2^31 must not become an allocation.
constexpr qint64 MaximumWideScratch = 64LL * 1024 * 1024;

} // namespace velnor

#endif
