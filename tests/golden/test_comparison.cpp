#include "comparison.h"
#include "side_by_side.h"

#include <gtest/gtest.h>

namespace golden {
namespace {

QImage whitePicture(int width = 4, int height = 3) {
    QImage picture(width, height, QImage::Format_RGB32);
    picture.fill(Qt::white);
    picture.setDotsPerMeterX(7992);
    picture.setDotsPerMeterY(7992);
    return picture;
}

TEST(Comparison, a_picture_is_the_same_as_its_copy) {
    EXPECT_EQ(describeDifferences(whitePicture(), whitePicture()).toStdString(), "");
}

TEST(Comparison, one_changed_pixel_is_found_with_its_largest_step) {
    QImage changed = whitePicture();
    changed.setPixel(1, 2, qRgb(250, 200, 255));
    EXPECT_EQ(describeDifferences(whitePicture(), changed).toStdString(),
              "1 pixel differs, by 55 at most");
}

TEST(Comparison, several_changed_pixels_are_counted_and_the_largest_step_of_all_is_told) {
    QImage changed = whitePicture();
    changed.setPixel(0, 0, qRgb(255, 254, 255));
    changed.setPixel(3, 0, qRgb(0, 0, 0));
    changed.setPixel(3, 2, qRgb(255, 255, 155));
    EXPECT_EQ(describeDifferences(whitePicture(), changed).toStdString(),
              "3 pixels differ, by 255 at most");
}

TEST(Comparison, transparency_alone_is_a_difference) {
    const QImage opaque = whitePicture().convertToFormat(QImage::Format_ARGB32);
    QImage clear = opaque;
    clear.setPixel(0, 0, qRgba(255, 255, 255, 155));
    EXPECT_EQ(describeDifferences(opaque, clear).toStdString(), "1 pixel differs, by 100 at most");
}

TEST(Comparison, another_size_is_told_with_both_sizes) {
    EXPECT_EQ(describeDifferences(whitePicture(4, 3), whitePicture(4, 5)).toStdString(),
              "the size is 4 x 5, expected is 4 x 3");
}

TEST(Comparison, another_resolution_is_a_difference) {
    QImage finer = whitePicture();
    finer.setDotsPerMeterY(11811);
    EXPECT_EQ(describeDifferences(whitePicture(), finer).toStdString(),
              "the resolution in dots per metre is 7992 x 11811, expected is 7992 x 7992");
}

TEST(Comparison, another_colour_depth_is_a_difference) {
    const QImage mono = whitePicture().convertToFormat(QImage::Format_Mono);
    EXPECT_EQ(describeDifferences(mono, whitePicture()).toStdString(),
              "the number of bits of a pixel is 32, expected is 1");
}

TEST(DifferenceMask, is_red_where_a_pixel_differs_and_grey_elsewhere) {
    QImage changed = whitePicture();
    changed.setPixel(1, 2, qRgb(0, 0, 0));
    const QImage mask = differenceMask(whitePicture(), changed);
    EXPECT_EQ(mask.pixel(1, 2), DifferenceColour);
    EXPECT_TRUE(qIsGray(mask.pixel(0, 0)));
}

TEST(DifferenceMask, is_red_where_only_one_picture_reaches) {
    const QImage mask = differenceMask(whitePicture(4, 3), whitePicture(2, 5));
    EXPECT_EQ(mask.size(), QSize(4, 5));
    EXPECT_EQ(mask.pixel(3, 0), DifferenceColour);
    EXPECT_EQ(mask.pixel(0, 4), DifferenceColour);
    EXPECT_TRUE(qIsGray(mask.pixel(1, 2)));
}

} // namespace
} // namespace golden
