// The messages of validation. They are part of the interface: hosts read them.
#ifndef VELNOR_HANDLER_VALIDATION_MESSAGES_H
#define VELNOR_HANDLER_VALIDATION_MESSAGES_H

namespace velnor::messages {

constexpr char NoCanvas[] = "Canvas null pointer";
constexpr char ImageFileMissing[] = "Image item id=%1: invalid filepath(%2); ";
constexpr char TextWithoutFont[] = "Text item id=%1: null font; ";
constexpr char FontNotAvailable[] = "Text item id=%1: font not available(%2) using default(%3); ";
constexpr char BoldNotAvailable[] = "Text item id=%1: bold not available(%2); ";
constexpr char ItalicNotAvailable[] = "Text item id=%1: italic not available(%2); ";
constexpr char BarcodeWithoutData[] = "Barcode item id=%1: null barcode; ";
constexpr char BarcodeType[] = "Barcode item id=%1: invalid type(%2) barcode; ";
constexpr char BarcodeNotHexadecimal[] =
    "Barcode item id=%1: invalid hexadecimal value, render as unicode string; ";
constexpr char RectangleThickness[] = "Rectangle item id=%1: invalid thickness(%2); ";
constexpr char RectangleStyle[] = "Rectangle item id=%1: invalid style(%2); ";
constexpr char EllipseThickness[] = "Ellipse item id=%1: invalid thickness(%2); ";
constexpr char EllipseStyle[] = "Ellipse item id=%1: invalid style(%2); ";
constexpr char LineThickness[] = "Line item id=%1: invalid thickness(%2); ";
constexpr char LineStyle[] = "Line item id=%1: invalid style(%2); ";
constexpr char LineLength[] = "Line item id=%1: invalid length(%2); ";
constexpr char UnknownKind[] = "invalid item id=%1; ";

} // namespace velnor::messages

#endif
