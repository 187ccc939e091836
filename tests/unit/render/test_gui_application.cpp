// A program of its own: these tests begin without any Qt application.
#include "render/gui_application.h"
#include "render/velnorimage.h"
#include "support/canvases.h"
#include "support/pictures.h"
#include "support/qt_messages.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>

#include <QGuiApplication>

namespace {

// The arguments of an application without a screen; Qt keeps references to them.
class Arguments {
public:
    int& count() { return number; }
    char** values() { return pointers; }

private:
    char program[5] = "unit";
    char option[10] = "-platform";
    char platform[10] = "offscreen";
    char* pointers[4] = {program, option, platform, nullptr};
    int number = 3;
};

// A text below a rectangle: the shape is drawn, the text is not.
void expectTextIsLeftOut() {
    const QtMessages messages;
    const ScratchFolder folder;
    const auto canvas = makeCanvas(200, 100);
    auto& rectangle = addItem<VelnorDrawableRectangle>(*canvas, 10, 10, 50, 20);
    rectangle.thickness = 2;
    auto& text = addItem<VelnorDrawableText>(*canvas, 10, 40, 150, 50);
    text.text = QStringLiteral("Ticket");
    text.fontname = QStringLiteral("Liberation Sans");
    text.fontsize = 20;
    const QString file = folder.path(QStringLiteral("t.png"));
    EXPECT_EQ(VelnorImage::CreateImageFromCanvas(canvas.get(), file.toUtf8().constData()), 0);
    EXPECT_EQ(inkOf(QImage(file)), QRect(9, 9, 52, 22));
    EXPECT_EQ(text.boundingBox, rectangle.boundingBox);
    EXPECT_EQ(messages.heard(), "");
}

void expectTextOperationsFailSoftly() {
    VelnorImage surface(50, 50);
    EXPECT_EQ(surface.SetFont(QStringLiteral("Liberation Sans"), 10, 96, true, true, true), 0);
    EXPECT_EQ(surface.DrawOverlayText(QStringLiteral("x"), 1, 2, 0), -1);
    EXPECT_EQ(surface.DrawOverlayLineBoundedText(QStringLiteral("x"), 1, 2, 30, 0, 0), -1);
    EXPECT_EQ(surface.DrawOverlayRectBoundedText(QStringLiteral("x"), 1, 2, 30, 30, 0, 0), -1);
    EXPECT_EQ(surface.lastBoundingRect(), QRectF(0, 0, 0, 0));
}

TEST(GuiApplication, DoesNotExistWithoutAnApplication) {
    ASSERT_EQ(QCoreApplication::instance(), nullptr);
    EXPECT_FALSE(velnor::guiApplicationExists());
    expectTextOperationsFailSoftly();
    expectTextIsLeftOut();
}

TEST(GuiApplication, DoesNotExistWithACoreApplicationAlone) {
    Arguments arguments;
    const QCoreApplication application(arguments.count(), arguments.values());
    EXPECT_FALSE(velnor::guiApplicationExists());
    expectTextOperationsFailSoftly();
    expectTextIsLeftOut();
}

TEST(GuiApplication, ExistsUntilItEndsAndFontsGoWithIt) {
    VelnorImage surface(50, 50);
    {
        Arguments arguments;
        const QGuiApplication application(arguments.count(), arguments.values());
        EXPECT_TRUE(velnor::guiApplicationExists());
        surface.SetFont(QStringLiteral("Liberation Sans"), 10, 96, false, false, false);
        EXPECT_EQ(surface.DrawOverlayRectBoundedText(QStringLiteral("x"), 1, 2, -1, -1, 0, 0), 0);
        EXPECT_GT(inkDots(*surface.picture()), 0);
    }
    EXPECT_FALSE(velnor::guiApplicationExists());
    EXPECT_EQ(surface.DrawOverlayText(QStringLiteral("x"), 1, 2, 0), -1);
    expectTextOperationsFailSoftly();
}

} // namespace
