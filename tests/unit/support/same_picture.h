// Comparison of pictures, dot by dot, whatever their formats.
#ifndef VELNOR_TESTS_SAME_PICTURE_H
#define VELNOR_TESTS_SAME_PICTURE_H

#include <QImage>

#include <gtest/gtest.h>

// A failure names both sizes, or the number of different dots and the first of them.
testing::AssertionResult samePicture(const QImage& actual, const QImage& expected);

// The part of a picture in which nothing but white was expected: true when it is all white.
bool isAllWhite(const QImage& picture);

#endif
