// Entities: those that documents use are expanded, and those made to grow without end are refused.
#include "document/dom_loading.h"
#include "library_limits.h"
#include "support/layouts.h"
#include "support/printing.h"
#include "support/rows.h"

#include <QDomDocument>

namespace {

struct TextRow : Row {
    QByteArray document;
    QByteArray text; // of the root
};

struct RefusedRow : Row {
    QByteArray document;
};

class ExpandedEntities : public testing::TestWithParam<TextRow> {};
class RefusedEntities : public testing::TestWithParam<RefusedRow> {};

QByteArray withDoctype(const QByteArray& declarations, const QByteArray& root) {
    return "<!DOCTYPE r [" + declarations + "]>" + root;
}

QByteArray entity(const QByteArray& name, const QByteArray& value) {
    return "<!ENTITY " + name + " \"" + value + "\">";
}

QByteArray parameterEntity(const QByteArray& name, const QByteArray& value) {
    return entity("% " + name, value);
}

QByteArray numbered(int number) {
    return "e" + QByteArray::number(number);
}

QByteArray reference(const QByteArray& name) {
    return '&' + name + ';';
}

QByteArray entities(int count) {
    QByteArray declarations;
    for (int i = 0; i < count; ++i) {
        declarations += entity(numbered(i), "value " + QByteArray::number(i));
    }
    return declarations;
}

// Entities e0 to `levels`. Each names the one before it so many times.
QByteArray growingEntities(int levels, int times) {
    QByteArray declarations = entity("e0", "0123456789");
    for (int i = 1; i <= levels; ++i) {
        declarations += entity(numbered(i), reference(numbered(i - 1)).repeated(times));
    }
    return declarations;
}

// Entities e0 to `levels`. Each names the one behind it twice, the last one holds `value`. The texts
// beside the names are there to reach the limit soon.
QByteArray entitiesNamedEarly(int levels, const QByteArray& value) {
    QByteArray declarations;
    for (int i = 0; i < levels; ++i) {
        declarations +=
            entity(numbered(i), reference(numbered(i + 1)).repeated(2) + QByteArray(200, 'x'));
    }
    return declarations + entity(numbered(levels), value);
}

// A parameter entity that begins a content model without writing "<!ELEMENT".
QByteArray hiddenModel(const QByteArray& inside, const QByteArray& behind) {
    return withDoctype(parameterEntity("p", "&#60;!ELEMENT r " + inside) + "%p;" + behind, "<r/>");
}

QByteArray parentheses(int depth) {
    return QByteArray(depth, '(') + 'a' + QByteArray(depth, ')');
}

QByteArray modelAcrossParameterEntities(int depth) {
    const QByteArray opened(depth / 2, '(');
    return withDoctype(parameterEntity("p", "&#60;!ELEMENT r " + opened) +
                           parameterEntity("q", "&#37;p;" + opened + "a" + QByteArray(depth, ')')) +
                           "%q;>",
                       "<r/>");
}

constexpr int LongValue = 4000;
constexpr int TooMany = velnor::MaximumExpansion / LongValue + 1;

const QByteArray Long = QByteArray(LongValue, 'x');
const QByteArray LongComment = "<!--" + QByteArray(LongValue - 7, 'x') + "-->";

const TextRow ExpandedTexts[] = {
    {"ALongUnusedEntityBesideBuiltInReferences",
     withDoctype(entity("e", QByteArray(20000, 'x')),
                 "<r>" + QByteArray("&amp;").repeated(9000) + "</r>"),
     QByteArray(9000, '&')},
    {"ALongUnusedEntityBesideNumberedCharacters",
     withDoctype(entity("e", QByteArray(20000, 'x')),
                 "<r>" + QByteArray("&#65;&#x42;").repeated(9000) + "</r>"),
     QByteArray("AB").repeated(9000)},
    {"ALongUnusedEntityBesideReferencesToAShortOne",
     withDoctype(entity("e", QByteArray(20000, 'x')) + entity("f", "y"),
                 "<r>" + QByteArray("&f;").repeated(9000) + "</r>"),
     QByteArray(9000, 'y')},
    {"ThreeThousandEntities", withDoctype(entities(3000), "<r>&e0;, &e2999;</r>"),
     "value 0, value 2999"},
    {"AnEntityInsideAnEntity", withDoctype(entity("a", "b") + entity("c", "&a;&a;"), "<r>&c;</r>"),
     "bb"},
    {"AnEntityThatIsNamedBeforeItIsDeclared",
     withDoctype(entity("c", "&a;&a;") + entity("a", "b"), "<r>&c;</r>"), "bb"},
    {"ACharacterThatIsReferredToInAnEntity",
     withDoctype(entity("a", "&#38;lt;&lt;&#38;#60;"), "<r>&a;</r>"), "<<<"},
    {"ElementsInAnEntity", withDoctype(entity("a", "<b>1</b><b>2</b>"), "<r>&a;&a;</r>"), "1212"},
    {"AnUnusedParameterEntity", withDoctype(parameterEntity("p", "v"), "<r>1</r>"), "1"},
    {"AParameterEntityOfDeclarations",
     withDoctype(parameterEntity("p", "<!ELEMENT r (#PCDATA)><!ENTITY a '1'>") + "%p;",
                 "<r>&a;</r>"),
     "1"},
    {"AParameterEntityInTheValueOfAnEntity",
     withDoctype(parameterEntity("p", "1") + entity("a", "%p;%p;"), "<r>&a;</r>"), "11"},
    {"AParameterEntityInsideAnother",
     withDoctype(parameterEntity("p", "1") + parameterEntity("q", "<!ENTITY a '%p;2'>") + "%q;",
                 "<r>&a;</r>"),
     "12"},
    {"AContentModelOf256LevelsInAParameterEntity",
     withDoctype(parameterEntity("p", "<!ELEMENT r " + parentheses(velnor::MaximumNesting) + ">") +
                     "%p;",
                 "<r>1</r>"),
     "1"},
    {"AnExternalParameterEntityThatIsNotRead",
     withDoctype("<!ENTITY % p SYSTEM \"none\">%p;", "<r>1</r>"), "1"},
    {"ReferencesUpToTheLimit",
     withDoctype(entity("a", Long), "<r>" + reference("a").repeated(TooMany - 1) + "</r>"),
     Long.repeated(TooMany - 1)},
};

const RefusedRow RefusedTexts[] = {
    {"ReferencesBeyondTheLimit",
     withDoctype(entity("a", Long), "<r>" + reference("a").repeated(TooMany) + "</r>")},
    {"ReferencesToSeveralEntities",
     withDoctype(entity("a", Long) + entity("b", Long),
                 "<r>" + QByteArray("&a;&b;").repeated(TooMany / 2 + 1) + "</r>")},
    {"ReferencesInAnAttribute",
     withDoctype(entity("a", Long), "<r b='" + reference("a").repeated(TooMany) + "'/>")},
    {"ReferencesInADefaultValue", withDoctype(entity("a", Long) + "<!ATTLIST r b CDATA '" +
                                                  reference("a").repeated(TooMany) + "'>",
                                              "<r/>")},
    {"EntitiesThatGrowFromTheEarlierOnes", withDoctype(growingEntities(9, 10), "<r>&e9;</r>")},
    {"EntitiesThatGrowFromTheLaterOnes", withDoctype(entitiesNamedEarly(100, "x"), "<r>&e0;</r>")},
    {"EntitiesThatGrowFromAnEmptyOne", withDoctype(entitiesNamedEarly(100, ""), "<r>&e0;</r>")},
    {"EntitiesThatGrowInAnAttribute", withDoctype(entitiesNamedEarly(100, "x"), "<r b='&e0;'/>")},
    {"EntitiesThatGrowInADefaultValue",
     withDoctype(entitiesNamedEarly(100, "x") + "<!ATTLIST r b CDATA '&e0;'>", "<r/>")},
    {"AnEntityInsideItself", withDoctype(entity("a", "&a;"), "<r>&a;</r>")},
    {"TwoEntitiesInsideOneAnother",
     withDoctype(entity("a", "&b;") + entity("b", "&a;"), "<r>&a;</r>")},
    {"MoreEntitiesThanCanBeSearched", withDoctype(entities(5000), "<r/>")},
    {"LongerEntitiesThanCanBeSearched",
     withDoctype(entities(1000) + entity("a", QByteArray(3000000, 'x')), "<r/>")},
    {"MoreReferencesInAnEntityThanCanBeSearched",
     withDoctype(entity("a", "x") + entity("b", reference("a").repeated(500000)), "<r/>")},
    {"MoreQuotesThanOneAttributeCanHold",
     withDoctype(entity("a", QByteArray(2000000, '\'')), "<r/>")},
    {"MoreQuotesThanAttributesCanHold",
     withDoctype(entity("a", QByteArray(800000, '\'')), "<r b='&a;' c='&a;' d='&a;' e='&a;'/>")},
    {"AParameterEntityThatGrows",
     withDoctype(parameterEntity("p", Long) +
                     parameterEntity("q", QByteArray("%p;").repeated(TooMany)),
                 "<r/>")},
    {"AParameterEntityThatIsNamedTooOften",
     withDoctype(parameterEntity("p", LongComment) + QByteArray("%p;").repeated(TooMany), "<r/>")},
    {"AParameterEntityInsideItself", withDoctype(parameterEntity("p", "&#37;p;") + "%p;", "<r/>")},
    {"AContentModelOf257LevelsInAParameterEntity",
     hiddenModel(parentheses(velnor::MaximumNesting + 1), ">")},
    {"AContentModelThatAParameterEntityBegins",
     hiddenModel("", parentheses(velnor::MaximumNesting + 1) + ">")},
    {"AContentModelAcrossParameterEntities",
     modelAcrossParameterEntities(velnor::MaximumNesting + 2)},
    {"AContentModelOfAMillionLevelsInAParameterEntity", hiddenModel(parentheses(1000000), ">")},
    {"AContentModelOfAMillionLevelsBehindAParameterEntity",
     hiddenModel("", parentheses(1000000) + ">")},
};

} // namespace

TEST_P(ExpandedEntities, GiveTheirText) {
    QDomDocument document;
    ASSERT_TRUE(velnor::loadXml(document, GetParam().document));
    EXPECT_TRUE(document.documentElement().text() == QString::fromLatin1(GetParam().text));
}

TEST_P(RefusedEntities, DoNotLoad) {
    QDomDocument document;
    EXPECT_FALSE(velnor::loadXml(document, GetParam().document));
}

INSTANTIATE_TEST_SUITE_P(DomEntities, ExpandedEntities, testing::ValuesIn(ExpandedTexts),
                         RuleAsName());
INSTANTIATE_TEST_SUITE_P(DomEntities, RefusedEntities, testing::ValuesIn(RefusedTexts),
                         RuleAsName());

TEST(DomEntities, ThatAreNotReadCountAsNodes) {
    for (const QByteArray& kind : {QByteArray(" SYSTEM ''>"), QByteArray(" SYSTEM '' NDATA n>")}) {
        QByteArray declarations;
        for (int i = 0; i < velnor::MaximumNodes; ++i) {
            declarations += "<!ENTITY e" + QByteArray::number(i, 36) + kind;
        }
        QDomDocument document;
        EXPECT_FALSE(velnor::loadXml(document, withDoctype(declarations, "<r/>")));
    }
}
