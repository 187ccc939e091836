#include "document/vocabulary.h"

#include "document/item_fields.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::Contains;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using velnor::ValueKind;

namespace {

QStringList namesOf(const velnor::Words& words) {
    QStringList names;
    for (const velnor::Word& word : words) {
        names.append(QLatin1String(word.element));
    }
    return names;
}

struct Value {
    ValueKind kind;
    const char* text;
};

std::ostream& operator<<(std::ostream& stream, const Value& value) {
    return stream << '"' << value.text << "\" for kind " << static_cast<int>(value.kind);
}

bool isTaken(const Value& value) {
    return velnor::isTakenBy(value.kind, QString::fromUtf8(value.text));
}

class TakenValues : public testing::TestWithParam<Value> {};
class RefusedValues : public testing::TestWithParam<Value> {};

} // namespace

TEST(Vocabulary, EveryClassOfItemIsMadeAndHasWords) {
    EXPECT_THAT(velnor::itemClasses(), SizeIs(6));
    for (const QString& itemClass : velnor::itemClasses()) {
        EXPECT_TRUE(velnor::makeItem(itemClass)) << qPrintable(itemClass);
        EXPECT_THAT(velnor::itemWords(itemClass), Not(IsEmpty())) << qPrintable(itemClass);
    }
}

TEST(Vocabulary, EveryKindOfItemKnowsTheWordsOfPlacement) {
    for (const QString& itemClass : velnor::itemClasses()) {
        const QStringList names = namesOf(velnor::itemWords(itemClass));
        for (const char* word : {"x", "y", "xr", "yb", "width", "height", "margin", "row", "column",
                                 "hanchor", "vanchor", "anchor", "hidden", "rotation"}) {
            EXPECT_THAT(names, Contains(QLatin1String(word))) << qPrintable(itemClass);
        }
    }
}

TEST(Vocabulary, NoWordStandsTwice) {
    QStringList names = namesOf(velnor::canvasWords());
    EXPECT_EQ(names.removeDuplicates(), 0);
    for (const QString& itemClass : velnor::itemClasses()) {
        names = namesOf(velnor::itemWords(itemClass));
        EXPECT_EQ(names.removeDuplicates(), 0) << qPrintable(itemClass);
    }
}

TEST(Vocabulary, AWordOfOneKindIsNoWordOfAnother) {
    EXPECT_THAT(namesOf(velnor::itemWords(QStringLiteral("line"))),
                Contains(QStringLiteral("length")));
    EXPECT_THAT(namesOf(velnor::itemWords(QStringLiteral("text"))),
                Not(Contains(QStringLiteral("length"))));
}

TEST(Vocabulary, AnUnknownClassHasNoWords) {
    EXPECT_THAT(velnor::itemWords(QStringLiteral("Text")), IsEmpty());
}

TEST(Vocabulary, TheCanvasKnowsItsGridAndThePrinterSettings) {
    const QStringList names = namesOf(velnor::canvasWords());
    for (const char* word : {"RowDefinitions", "ColumnDefinitions", "dpi", "presentation",
                             "ejectRetract", "ejectRetractTimeout"}) {
        EXPECT_THAT(names, Contains(QLatin1String(word)));
    }
}

TEST_P(TakenValues, AreTaken) {
    EXPECT_TRUE(isTaken(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(
    , TakenValues,
    testing::Values(Value{ValueKind::Number, " -12 "}, Value{ValueKind::Number, "+7"},
                    Value{ValueKind::NumberUpTo2, "2"}, Value{ValueKind::Margin, "1,2,3,4"},
                    Value{ValueKind::Margin, "1, 2 ,-3,4"},
                    Value{ValueKind::HorizontalAnchor, " RIGHT "},
                    Value{ValueKind::HorizontalAnchor, "12"},
                    Value{ValueKind::VerticalAnchor, "Center"},
                    Value{ValueKind::GridLength, "Auto"}, Value{ValueKind::GridLength, "3*"},
                    Value{ValueKind::GridLength, " 40 "}, Value{ValueKind::EjectOrRetract, "Eject"},
                    Value{ValueKind::Text, ""}));

TEST_P(RefusedValues, AreRefused) {
    EXPECT_FALSE(isTaken(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(
    , RefusedValues,
    testing::Values(Value{ValueKind::Number, ""}, Value{ValueKind::Number, "12px"},
                    Value{ValueKind::Number, "3.5"}, Value{ValueKind::NumberUpTo2, "3"},
                    Value{ValueKind::NumberUpTo2, "-1"}, Value{ValueKind::Margin, "1,2,3"},
                    Value{ValueKind::Margin, "1,2,3,x"}, Value{ValueKind::HorizontalAnchor, "top"},
                    Value{ValueKind::VerticalAnchor, "left"}, Value{ValueKind::GridLength, "auto"},
                    Value{ValueKind::GridLength, "*"}, Value{ValueKind::GridLength, "50%"},
                    Value{ValueKind::EjectOrRetract, "keep"}));
