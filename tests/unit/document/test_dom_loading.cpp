#include "document/dom_loading.h"

#include "support/layouts.h"
#include "support/printing.h"
#include "support/rows.h"

#include <QDomDocument>

namespace {

struct TextRow : Row {
    QByteArray text;
};

// Every rule holds for a decoded text and for the bytes of a file.
bool loads(const QByteArray& xml) {
    QDomDocument fromText;
    QDomDocument fromBytes;
    const bool text = velnor::loadXml(fromText, QString::fromUtf8(xml));
    const bool bytes = velnor::loadXml(fromBytes, xml);
    EXPECT_EQ(text, bytes);
    return text && bytes;
}

QString rootText(const QByteArray& xml) {
    QDomDocument document;
    velnor::loadXml(document, QString::fromUtf8(xml));
    return document.documentElement().text();
}

QByteArray withDoctype(const QByteArray& declarations, const QByteArray& root) {
    return "<!DOCTYPE r [" + declarations + "]>" + root;
}

QByteArray entity(const QByteArray& name, const QByteArray& value) {
    return "<!ENTITY " + name + " \"" + value + "\">";
}

class WellFormed : public testing::TestWithParam<TextRow> {};
class Malformed : public testing::TestWithParam<TextRow> {};
class TooDeep : public testing::TestWithParam<TextRow> {};

const TextRow WellFormedTexts[] = {
    {"ALoneElement", "<r/>"},
    {"APrologue", "<?xml version=\"1.0\" encoding=\"UTF-8\"?><r/>"},
    {"CarriageReturns", "<r>\r\n<a/>\r\n</r>\r\n"},
    {"ALineFeedBehindTheRoot", "<r/>\n"},
    {"Comments", "<!-- a --><r><!-- <b> --></r><!-- c -->"},
    {"APrefixThatNoNamespaceDeclares", "<p:r><q:a p:b=\"1\"/></p:r>"},
    {"TwoHundredAndFiftySixLevels", nested("a", 256)},
    {"ManySiblingsThatAreNotNested", "<r>" + QByteArray("<a/>").repeated(5000) + "</r>"},
    {"ManyPairsOfTagsThatAreNotNested", "<r>" + QByteArray("<a></a>").repeated(5000) + "</r>"},
    {"DeepLookingCharacterData", "<r><![CDATA[" + QByteArray("<a>").repeated(1000) + "]]></r>"},
    {"ADeepLookingComment", "<r><!--" + QByteArray("<a>").repeated(1000) + "--></r>"},
    {"ADeepLookingAttribute", "<r b=\"" + QByteArray("&lt;a>").repeated(1000) + "\"/>"},
    {"AnAttributeOfAMillionCharacters", "<r b=\"" + QByteArray(1000000, 'x') + "\"/>"},
    {"ATextOfAMillionCharacters", element("r", QByteArray(1000000, 'x'))},
};

const TextRow MalformedTexts[] = {
    {"AnEmptyText", ""},
    {"ABlankText", " \n"},
    {"PlainWords", "no markup at all"},
    {"AnUnclosedElement", "<r><a></r>"},
    {"AMissingEnd", "<r><a>"},
    {"TwoRoots", "<r/><r/>"},
    {"ALoneAmpersand", "<r>a & b</r>"},
    {"AnAttributeWithoutQuotes", "<r b=1/>"},
    {"RandomBytes", QByteArray("\x89PNG\r\n\x1a\n\x00\x01\xff\xfe<\x00>", 16)},
    {"ZeroBytes", QByteArray(64, '\0')},
    {"OnlyAngleBrackets", QByteArray(5000, '<')},
};

const TextRow DeepTexts[] = {
    {"OneLevelTooMany", nested("a", 257)},
    {"AThousandLevels", nested("a", 1000)},
    {"FortyThousandLevels", nested("a", 40000)},
    {"FortyThousandLevelsWithoutEnd", QByteArray("<a>").repeated(40000)},
    {"AMillionLevelsWithoutEnd", QByteArray("<a>").repeated(1000000)},
    {"DeepBehindAShallowPart", "<r>" + nested("a", 100) + nested("b", 256) + "</r>"},
    {"DeepWithAttributes", QByteArray("<a b='>' class=\"c\">").repeated(40000)},
    {"DeepBelowAnUndeclaredPrefix", "<p:r q:s=\"1\">" + nested("p:a", 40000) + "</p:r>"},
    {"DeepBehindComments", "<!--x--><r><!--y-->" + nested("a", 40000) + "</r>"},
    {"DeepBehindADoctype", withDoctype(entity("e", "v"), nested("a", 40000))},
    {"DeepThroughAnEntity", withDoctype(entity("e", nested("a", 300)), "<r>&e;</r>")},
    {"DeepThroughEntitiesThatOnlyOpen",
     withDoctype(entity("e", QByteArray("<a>").repeated(1000)),
                 "<r>" + QByteArray("&e;").repeated(40) + "</r>")},
};

} // namespace

TEST_P(WellFormed, Loads) {
    EXPECT_TRUE(loads(GetParam().text));
}

TEST_P(Malformed, DoesNotLoad) {
    EXPECT_FALSE(loads(GetParam().text));
}

TEST_P(TooDeep, DoesNotLoad) {
    EXPECT_FALSE(loads(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(DomLoading, WellFormed, testing::ValuesIn(WellFormedTexts), RuleAsName());
INSTANTIATE_TEST_SUITE_P(DomLoading, Malformed, testing::ValuesIn(MalformedTexts), RuleAsName());
INSTANTIATE_TEST_SUITE_P(DomLoading, TooDeep, testing::ValuesIn(DeepTexts), RuleAsName());

TEST(DomLoading, KeepsPrefixesInNames) {
    QDomDocument document;
    ASSERT_TRUE(velnor::loadXml(document, QStringLiteral("<p:r xmlns:p=\"urn:x\"/>")));
    EXPECT_EQ(document.documentElement().tagName(), QStringLiteral("p:r"));
}

TEST(DomLoading, DropsTextThatIsOnlyWhiteSpace) {
    QDomDocument document;
    ASSERT_TRUE(velnor::loadXml(document, QStringLiteral("<r>\n  <a>  </a>\n</r>")));
    EXPECT_EQ(document.documentElement().childNodes().size(), 1);
    EXPECT_EQ(document.documentElement().text(), QString());
}

TEST(DomLoading, KeepsCharacterDataSections) {
    EXPECT_EQ(rootText("<r>a<![CDATA[<b> & c]]></r>"), QStringLiteral("a<b> & c"));
}

TEST(DomLoading, IgnoresTheEncodingThatADecodedTextDeclares) {
    EXPECT_EQ(rootText("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><r>\xC3\xA9</r>"),
              QString(QChar(0xE9)));
}

TEST(DomLoading, CutsANumberedCharacterBeyond16Bits) {
    EXPECT_EQ(rootText("<r>&#128512;</r>"), QString(QChar(128512 % 65536)));
    EXPECT_EQ(rootText("<r>\xF0\x9F\x98\x80</r>"), QString::fromUtf8("\xF0\x9F\x98\x80"));
}

TEST(DomLoading, DecodesBytesAsTheirPrologueSays) {
    QDomDocument document;
    const QByteArray bytes("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><r>\xE9</r>");
    ASSERT_TRUE(velnor::loadXml(document, bytes));
    EXPECT_EQ(document.documentElement().text(), QString(QChar(0xE9)));
}

TEST(DomLoading, DecodesBytesBehindAByteOrderMark) {
    QDomDocument document;
    ASSERT_TRUE(velnor::loadXml(document, QByteArray("\xEF\xBB\xBF<r>\xC3\xA9</r>")));
    EXPECT_EQ(document.documentElement().text(), QString(QChar(0xE9)));
}

TEST(DomLoading, DoesNotReadExternalEntities) {
    const ScratchFolder folder;
    const QByteArray secret = folder.write(QStringLiteral("secret.txt"), "SECRET").toUtf8();
    for (const QByteArray& url : {secret, "file://" + secret}) {
        const QByteArray declaration = "<!ENTITY x SYSTEM \"" + url + "\">";
        EXPECT_FALSE(rootText(withDoctype(declaration, "<r>&x;</r>")).contains(u"SECRET"));
    }
}

TEST(DomLoading, DoesNotReadAnExternalDoctype) {
    const ScratchFolder folder;
    const QByteArray dtd = folder.write(QStringLiteral("r.dtd"), entity("x", "SECRET")).toUtf8();
    for (const QByteArray& url : {dtd, "file://" + dtd}) {
        EXPECT_FALSE(rootText("<!DOCTYPE r SYSTEM \"" + url + "\"><r>&x;</r>").contains(u"SECRET"));
    }
}
