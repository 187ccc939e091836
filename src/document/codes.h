// The numbers that a layout document and its records use for kinds, anchors and absent values.
#ifndef VELNOR_DOCUMENT_CODES_H
#define VELNOR_DOCUMENT_CODES_H

namespace velnor {

// VelnorDrawableElement::type
enum ItemKind {
    UnspecifiedKind = -1,
    CanvasKind = 0,
    ImageKind = 1,
    TextKind = 2,
    BarcodeKind = 3,
    RectangleKind = 4,
    EllipseKind = 5,
    LineKind = 6
};

// VelnorDrawableElement::anchor: a vertical and a horizontal group of two bits each. A group with
// both bits set is centred.
enum AnchorBits {
    AnchorTop = 1,
    AnchorBottom = 2,
    AnchorVerticalCentre = 3,
    AnchorLeft = 4,
    AnchorRight = 8,
    AnchorHorizontalCentre = 12
};

// VelnorRowColumn::type
enum LengthKind { AbsoluteLength = 0, AutoLength = 1, ProportionalLength = 2 };

// What a record holds where the document says nothing, or says something that is not a number.
constexpr int NotGiven = -1;
constexpr int RotationNotANumber = -361; // one below every valid angle
constexpr int BarcodeOptionNotGiven = 0x5A5A5A5A;

constexpr int DefaultDpi = 96;

} // namespace velnor

#endif
