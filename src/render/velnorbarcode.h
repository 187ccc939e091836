// The driver of zint: one barcode item becomes one picture.
#ifndef VELNOR_RENDER_VELNORBARCODE_H
#define VELNOR_RENDER_VELNORBARCODE_H

#include <QString>

class QImage;
struct zint_symbol;

class VelnorBarcode {
public:
    VelnorBarcode() = default;

    // render/barcode_size.cpp: makes the symbol as large as whole module multiples allow in a box
    // of width x height dots (below 1: not given). 0 made, -1 refused; where only the size that
    // fits the box was refused, the picture is the smallest one all the same.
    int CreateBarcode(int type, int hrt, const char* data, int inputmode, const char* primary,
                      int option1, int option2, int option3, QImage* picture, int width,
                      int height);

    // render/barcode_symbol.cpp: one encoding. Reports the picture, where one was made, and the
    // symbol's size in half modules. A bar height of -1 and a scale of 0.0 mean zint's defaults.
    int CreateBaseBarcode(int type, int hrt, const char* data, int inputmode, const char* primary,
                          int option1, int option2, int option3, QImage* picture, int* doubledWidth,
                          int* doubledHeight, int barHeight, float scale);

    // Why the last encoding was refused, in zint's words where they are its; empty where it was not.
    const QString& refusal() const { return refusalWords; }

    // What zint says about the last picture that was made where its data go beside the standard.
    const QString& warning() const { return warningWords; }

    // The side of a module in the last picture that was made, in dots.
    double moduleDots() const { return drawnModule; }

    // render/barcode_data.cpp
    bool VariableHeightAvailable(int symbology);
    int escape_char_process(zint_symbol* symbol, const unsigned char* data, int length);

private:
    QString refusalWords;
    QString warningWords;
    double drawnModule = 0;
};

#endif
