// A program of its own: these queries are asked without a GUI application.
#include "handler/velnorxml.h"

#include "render/velnorimage.h"
#include "support/canvases.h"
#include "support/qt_messages.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

#include <array>

namespace {

void expectValidationFails() {
    const auto canvas = makeCanvas(100, 100);
    auto& text = addItem<VelnorDrawableText>(*canvas);
    text.text = QStringLiteral("Ticket");
    text.fontname = QStringLiteral("Liberation Sans");
    std::array<char, 100> buffer;
    buffer.fill('#');
    EXPECT_EQ(VelnorXml::CheckIsCorrect(canvas.get(), buffer.data(), buffer.size()), -1);
    EXPECT_EQ(buffer, (std::array<char, 100>{}));
    EXPECT_EQ(VelnorXml::CheckIsCorrect(nullptr, buffer.data(), buffer.size()), -1);
    EXPECT_STREQ(buffer.data(), "Canvas null pointer");
}

void expectFontQueriesFail() {
    int bold = 77;
    int italic = 77;
    EXPECT_EQ(VelnorXml::GetFontProperty(QStringLiteral("Liberation Sans"), &bold, &italic), -1);
    EXPECT_EQ(bold, 0);
    EXPECT_EQ(italic, 0);
    EXPECT_EQ(VelnorXml::GetFontProperty(QStringLiteral("Liberation Sans"), &bold, nullptr), -1);
    EXPECT_TRUE(VelnorImage::ListAvailableFont().isEmpty());
    EXPECT_EQ(VelnorImage::GetAvailableFont(), nullptr);
}

TEST(WithoutAGuiApplication, QueriesFailSoftlyWithoutAnyApplication) {
    ASSERT_EQ(QCoreApplication::instance(), nullptr);
    const QtMessages messages;
    expectValidationFails();
    expectFontQueriesFail();
    EXPECT_EQ(messages.heard(), "");
}

TEST(WithoutAGuiApplication, QueriesFailSoftlyWithACoreApplication) {
    char program[] = "unit";
    std::array<char*, 2> arguments = {program, nullptr};
    int count = 1;
    const QCoreApplication application(count, arguments.data());
    const QtMessages messages;
    expectValidationFails();
    expectFontQueriesFail();
    EXPECT_EQ(messages.heard(), "");
}

} // namespace
