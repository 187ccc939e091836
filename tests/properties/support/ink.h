// Comparison of pictures that may differ by the rounding of turned items.
#ifndef VELNOR_TESTS_INK_H
#define VELNOR_TESTS_INK_H

#include <QImage>

#include <gtest/gtest.h>

// True when each dark dot of either picture has a dark dot of the other at its place or beside it.
testing::AssertionResult sameInkToOneDot(const QImage& actual, const QImage& expected);

#endif
