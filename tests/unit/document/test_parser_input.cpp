// What the parser makes of the text that reaches it: substitution first, then hostile documents.
#include "library_limits.h"
#include "support/layouts.h"
#include "support/printing.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using Image = VelnorDrawableImage;
using Line = VelnorDrawableLine;
using Text = VelnorDrawableText;

constexpr int Lowest = std::numeric_limits<int>::min();
constexpr int Highest = std::numeric_limits<int>::max();

QByteArray textDocument(const QByteArray& text) {
    return canvasDocument(itemElement("text", element("text", text), "box"));
}

// The text of the only item, null when the document is not parsed.
QString parsedText(Layout& layout) {
    const auto canvas = layout.parse();
    return canvas ? onlyItem<Text>(*canvas).text : QString();
}

QString parsedText(const QByteArray& document) {
    Layout layout(document);
    return parsedText(layout);
}

// A document of this many levels, the root and the item list among them.
QByteArray canvasOfDepth(int levels) {
    return canvasDocument(nested("a", levels - 2));
}

} // namespace

TEST(ParserInput, ReplacesPlaceholdersBeforeParsing) {
    Layout layout("<VelnorRoot><%list% class=\"%class%\">" +
                  itemElement("%kind%", "<%field%>%value%</%field%>", "%id%") +
                  "</%list%></VelnorRoot>");
    const char* const tags[][2] = {{"list", "VelnorItems"}, {"class", "canvas"}, {"kind", "text"},
                                   {"field", "text"},       {"value", "v"},      {"id", "item"}};
    for (const auto& tag : tags) {
        layout.handler().SetTagDictionary(tag[0], tag[1]);
    }
    const auto canvas = layout.parse();
    ASSERT_NE(canvas, nullptr);
    EXPECT_EQ(onlyItem<Text>(*canvas).text, QStringLiteral("v"));
    EXPECT_EQ(onlyItem<Text>(*canvas).id, QStringLiteral("item"));
}

TEST(ParserInput, FailsWhenAPlaceholderBreaksTheXml) {
    Layout layout(textDocument("%v%"));
    layout.handler().SetTagDictionary("v", "<b>");
    EXPECT_EQ(layout.parseResult(), 1);
}

TEST(ParserInput, AppliesObjectTagsToTheTree) {
    Layout layout(textDocument("old"));
    layout.handler().SetObjectTagDictionary("box.text", "a < b & c", false, false);
    EXPECT_EQ(parsedText(layout), QStringLiteral("a < b & c"));
}

TEST(ParserInput, AppliesObjectTagsToTheCanvas) {
    Layout layout(canvasDocument("<dpi>96</dpi>"));
    layout.handler().SetObjectTagDictionary("page.dpi", "203", false, false);
    layout.handler().SetObjectTagDictionary("page.width", "576", false, false);
    const auto canvas = layout.parse();
    ASSERT_NE(canvas, nullptr);
    EXPECT_EQ(canvas->dpi, 203);
    EXPECT_EQ(canvas->width, 576);
}

TEST(ParserInput, ResolvesImagesAgainstTheImageDirectory) {
    const ScratchFolder folder;
    const QByteArray document =
        folder
            .write(QStringLiteral("l.xml"),
                   canvasDocument(itemElement("image", element("filepath", "sub/logo.png"))))
            .toUtf8();
    VelnorXml handler(document.constData(), "/data/images", nullptr);
    VelnorDrawableCanvas* canvas = nullptr;
    ASSERT_EQ(handler.Parse(&canvas), 0);
    const std::unique_ptr<VelnorDrawableCanvas> owner(canvas);
    EXPECT_EQ(onlyItem<Image>(*canvas).filepath, QStringLiteral("/data/images/logo.png"));
}

TEST(ParserInput, ReadsTheDocumentAnewEachTime) {
    Layout layout(textDocument("one"));
    EXPECT_EQ(parsedText(layout), QStringLiteral("one"));
    layout.rewrite(textDocument("%two%"));
    EXPECT_EQ(parsedText(layout), QStringLiteral("%two%"));
    layout.handler().SetTagDictionary("two", "2");
    EXPECT_EQ(parsedText(layout), QStringLiteral("2"));
    layout.handler().ClearAllDictionary();
    EXPECT_EQ(parsedText(layout), QStringLiteral("%two%"));
}

TEST(ParserInput, MaySucceedAfterAFailure) {
    Layout layout("broken");
    EXPECT_EQ(layout.parseResult(), 1);
    layout.rewrite(textDocument("whole"));
    EXPECT_EQ(parsedText(layout), QStringLiteral("whole"));
}

TEST(ParserInput, TakesAByteOrderMark) {
    EXPECT_EQ(parsedText("\xEF\xBB\xBF" + textDocument("\xC3\xA9")), QString(QChar(0xE9)));
}

TEST(ParserInput, TakesCarriageReturns) {
    const QByteArray document =
        "<?xml version=\"1.0\"?>\r\n<VelnorRoot>\r\n<VelnorItems class=\"canvas\">\r\n"
        "<VelnorItem class=\"text\">\r\n<text>a\r\nb</text>\r\n</VelnorItem>\r\n"
        "</VelnorItems>\r\n</VelnorRoot>\r\n";
    EXPECT_EQ(parsedText(document), QStringLiteral("a\nb"));
}

TEST(ParserInput, IsUtf8WhateverThePrologueSays) {
    EXPECT_EQ(
        parsedText("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>" + textDocument("\xC3\xA9")),
        QString(QChar(0xE9)));
}

TEST(ParserInput, TakesAVeryLongLine) {
    const QByteArray text(5000000, 'x');
    EXPECT_EQ(parsedText(textDocument(text)).size(), text.size());
}

TEST(ParserInput, MayBeNested256LevelsDeep) {
    EXPECT_EQ(Layout(canvasOfDepth(256)).parseResult(), 0);
    EXPECT_EQ(Layout(canvasOfDepth(257)).parseResult(), 1);
}

TEST(ParserInput, ReadsItemsDownToTheDeepestLevel) {
    QByteArray items;
    for (int i = 0; i < 254; ++i) {
        items = itemElement("line", items, QByteArray::number(i));
    }
    const auto canvas = parsedCanvas(items);
    ASSERT_EQ(canvas->items->size(), 254U);
    EXPECT_EQ(canvas->items->back()->id, QStringLiteral("0"));
}

TEST(ParserInput, Of40000LevelsFails) {
    EXPECT_EQ(Layout(canvasOfDepth(40000)).parseResult(), 1);
}

TEST(ParserInput, DeepThroughAPlaceholderFails) {
    Layout layout(textDocument("%deep%"));
    layout.handler().SetTagDictionary("deep", nested("a", 40000));
    EXPECT_EQ(layout.parseResult(), 1);
}

TEST(ParserInput, OfAnEntityBombFails) {
    QByteArray declarations = "<!ENTITY e0 \"0123456789\">";
    for (int i = 1; i < 10; ++i) {
        const QByteArray inner = "&e" + QByteArray::number(i - 1) + ';';
        declarations += "<!ENTITY e" + QByteArray::number(i) + " \"" + inner.repeated(10) + "\">";
    }
    Layout layout("<!DOCTYPE VelnorRoot [" + declarations + "]>" + textDocument("&e9;"));
    EXPECT_EQ(layout.parseResult(), 1);
}

TEST(ParserInput, DoesNotReadExternalEntities) {
    Layout layout("");
    const QByteArray secret =
        layout.folder().write(QStringLiteral("secret.txt"), "SECRET").toUtf8();
    layout.rewrite("<!DOCTYPE VelnorRoot [<!ENTITY x SYSTEM \"file://" + secret + "\">]>" +
                   textDocument("a&x;"));
    EXPECT_FALSE(parsedText(layout).contains(QLatin1String("SECRET")));
}

TEST(ParserInput, OfRandomBytesFails) {
    QByteArray bytes;
    unsigned state = 12345;
    for (int i = 0; i < 100000; ++i) {
        state = state * 1664525U + 1013904223U;
        bytes.append(static_cast<char>(state >> 24));
    }
    EXPECT_EQ(Layout(bytes).parseResult(), 1);
    EXPECT_EQ(Layout("<VelnorRoot>" + bytes).parseResult(), 1);
}

TEST(ParserInput, CutAnywhereFails) {
    const QByteArray whole = textDocument("text");
    Layout layout(whole);
    for (int size = 0; size < whole.size(); ++size) {
        layout.rewrite(whole.left(size));
        EXPECT_EQ(layout.parseResult(), 1) << size;
    }
}

TEST(ParserInput, KeepsNumbersAtTheEndsOf32Bits) {
    const auto canvas = parsedCanvas(
        "<margin>2147483647,-2147483648,2147483647,-2147483648</margin>"
        "<width>2147483647</width><height>-2147483648</height>" +
        itemElement("line", "<x>-2147483648</x><y>2147483647</y><length>2147483647</length>"));
    EXPECT_EQ(canvas->x, Highest);
    EXPECT_EQ(canvas->yb, Lowest);
    EXPECT_EQ(canvas->rows[0].size, Lowest);
    EXPECT_EQ(canvas->columns[0].size, Highest);
    EXPECT_EQ(onlyItem<Line>(*canvas).x, Lowest);
    EXPECT_EQ(onlyItem<Line>(*canvas).length, Highest);
}

TEST(ParserInput, KeepsHugeSpansThatEndInsideTheGrid) {
    const auto canvas = parsedCanvas(
        itemElement("line", "<row>-2147483648</row><rowspan>2147483647</rowspan>"
                            "<column>-2147483646</column><columnspan>2147483647</columnspan>"));
    EXPECT_EQ(onlyItem<Line>(*canvas).row, Lowest);
    EXPECT_EQ(onlyItem<Line>(*canvas).rowspan, Highest);
    EXPECT_EQ(onlyItem<Line>(*canvas).columnspan, Highest);
}

TEST(ParserInput, TakesThousandsOfRowsAndItems) {
    QByteArray children =
        element("RowDefinitions",
                QByteArray("<RowDefinition><height>2</height></RowDefinition>").repeated(5000));
    for (int i = 0; i < 5000; ++i) {
        children += itemElement("line", element("row", QByteArray::number(i)));
    }
    const auto canvas = parsedCanvas(children);
    ASSERT_EQ(canvas->items->size(), 5000U);
    EXPECT_EQ(canvas->items->back()->row, 4999);
    EXPECT_EQ(canvas->rows[4999].offset, 9998);
}

TEST(ParserInput, MayHoldSoManyItemsAndNoMore) {
    const QByteArray item = "<VelnorItem class='x'/>";
    EXPECT_EQ(Layout(canvasDocument(item.repeated(velnor::MaximumItems))).parseResult(), 0);
    EXPECT_EQ(Layout(canvasDocument(item.repeated(velnor::MaximumItems + 1))).parseResult(), 1);
}

TEST(ParserInput, OfATooLargeFileFails) {
    const QByteArray document = canvasDocument({});
    const int room = velnor::MaximumDocumentSize - document.size() - 1;
    EXPECT_EQ(Layout(document + QByteArray(room, ' ')).parseResult(), 0);
    EXPECT_EQ(Layout(document + QByteArray(room + 2, ' ')).parseResult(), 1);
}

TEST(ParserInput, MayHoldItemsInsideItemsButNotALargeTextManyTimesOver) {
    const auto inside = [](int levels, int length) {
        QByteArray items = QByteArray(length, 'x');
        for (int i = 0; i < levels; ++i) {
            items = itemElement("text", element("text", items));
        }
        return Layout(canvasDocument(items)).parseResult();
    };
    EXPECT_EQ(inside(100, 100000), 0);
    EXPECT_EQ(inside(100, 1000000), 1);
}
