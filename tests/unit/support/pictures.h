// Questions that tests ask of a picture.
#ifndef VELNOR_TESTS_PICTURES_H
#define VELNOR_TESTS_PICTURES_H

#include <QImage>
#include <QRect>

// The smallest rectangle that holds every dot that is not opaque white; empty for a blank picture.
QRect inkOf(const QImage& picture);

// The number of dots that are not opaque white.
int inkDots(const QImage& picture);

// True when a dot holds a shade between black and white.
bool hasGrey(const QImage& picture);

#endif
