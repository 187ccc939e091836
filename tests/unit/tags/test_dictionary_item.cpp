#include "tags/dictionary_item.h"

#include "support/printing.h"

#include <gtest/gtest.h>

TEST(DictionaryItem, HoldsTheKeyAndTheValue) {
    const DictionaryItem item(QStringLiteral("%name%"), QStringLiteral("text"));
    EXPECT_EQ(item.key, QStringLiteral("%name%"));
    EXPECT_EQ(item.value, QStringLiteral("text"));
}

TEST(DictionaryItem, KeepsItsTextsWhenTheirSourcesChange) {
    QString key = QStringLiteral("key");
    QString value = QStringLiteral("value");
    const DictionaryItem item(key, value);
    key.clear();
    value.append(QStringLiteral(" changed"));
    EXPECT_EQ(item.key, QStringLiteral("key"));
    EXPECT_EQ(item.value, QStringLiteral("value"));
}

TEST(DictionaryItem, ReleasesItsTexts) {
    const QString text(20, QLatin1Char('t'));
    {
        const DictionaryItem item(text, text);
        EXPECT_FALSE(text.isDetached());
    }
    EXPECT_TRUE(text.isDetached());
}

TEST(DictionaryItem, HasCopiesOfItsOwn) {
    DictionaryItem copy{QString(), QString()};
    {
        const DictionaryItem item(QStringLiteral("key"), QStringLiteral("value"));
        copy = item;
    }
    EXPECT_EQ(copy.key, QStringLiteral("key"));
    EXPECT_EQ(copy.value, QStringLiteral("value"));
}
