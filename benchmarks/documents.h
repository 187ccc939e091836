// Layout documents made by code: each of a size or a kind that no example has.
#ifndef VELNOR_BENCHMARKS_DOCUMENTS_H
#define VELNOR_BENCHMARKS_DOCUMENTS_H

#include <QByteArray>

namespace bench {

// One text, one picture and one barcode, on few dots.
QByteArray smallDocument();

// Barcodes in six columns: symbologies in turn, each in three sizes.
QByteArray barcodeSheet();
constexpr int BarcodesOnSheet = 60;

// A growing canvas with an automatic row for each line.
QByteArray textRoll(int lines);

// The picture file beside the document, on 800 x 600 dots.
QByteArray photographPage(const char* file);

// Three lines of text, 832 dots wide at 300 dpi. The canvas grows, or has the height that a growing
// one keeps.
QByteArray growingMetre();
QByteArray metreOfGivenHeight();

// Five placeholders a line (%tag0%, ...), and objects (object0, ...) whose texts wait for values.
QByteArray form(int placeholders, int objects);

// Texts at places of their own, ten in a row; the canvas is as high as they need.
QByteArray textField(int texts);

// So many lines, each with a placeholder: %tag0% to %tag999% in turn.
QByteArray taggedLines(int lines);

// Objects (object0, ...) beside one another, or each inside the one before.
QByteArray objectsInARow(int count);
QByteArray nestedObjects(int depth);

// A value for the link "value" of each of so many objects.
QByteArray parameterFile(int values);

} // namespace bench

#endif
