// What keeps a document from taking the host's memory, stack or time.
#include "document/dom_loading.h"
#include "library_limits.h"
#include "support/layouts.h"
#include "support/rows.h"

#include <QDomDocument>

namespace {

bool loads(const QByteArray& xml) {
    QDomDocument document;
    return velnor::loadXml(document, xml);
}

// So many nodes besides the root.
struct NodesRow : Row {
    QByteArray one;
    QByteArray before;
    QByteArray after;
};

class ManyNodes : public testing::TestWithParam<NodesRow> {
protected:
    static bool loadsWith(int nodes) {
        const NodesRow& row = GetParam();
        return loads(row.before + row.one.repeated(nodes) + row.after);
    }
};

const NodesRow NodeKinds[] = {
    {"Elements", "<a/>", "<r>", "</r>"},
    {"Comments", "<!---->", "<r>", "</r>"},
    {"ProcessingInstructions", "<?a?>", "<r>", "</r>"},
    {"CharacterDataSections", "<![CDATA[]]>", "<r>", "</r>"},
    {"ReferencesToUnknownEntities", "&a;", "<!DOCTYPE r SYSTEM \"none\"><r>", "</r>"},
    {"Notations", "<!NOTATION a SYSTEM \"\">", "<!DOCTYPE r [", "]><r/>"},
};

QByteArray contentModel(int depth) {
    return "<!DOCTYPE r [<!ELEMENT r " + QByteArray(depth, '(') + 'a' + QByteArray(depth, ')') +
           ">]><r/>";
}

QByteArray attributes(int count) {
    QByteArray text;
    for (int i = 0; i < count; ++i) {
        text += " a" + QByteArray::number(i) + "=''";
    }
    return text;
}

} // namespace

TEST_P(ManyNodes, LoadUpToTheLimitAndNotBeyond) {
    EXPECT_TRUE(loadsWith(velnor::MaximumNodes - 1));
    EXPECT_FALSE(loadsWith(velnor::MaximumNodes + 1));
}

INSTANTIATE_TEST_SUITE_P(DomLimits, ManyNodes, testing::ValuesIn(NodeKinds), RuleAsName());

TEST(DomLimits, CountAttributesAsNodes) {
    EXPECT_TRUE(loads("<r" + attributes(velnor::MaximumNodes - 1) + "/>"));
    EXPECT_FALSE(loads("<r" + attributes(velnor::MaximumNodes) + "/>"));
}

TEST(DomLimits, LeaveOutADocumentThatIsTooLarge) {
    const int room = velnor::MaximumDocumentSize - QByteArray("<r></r>").size();
    EXPECT_TRUE(loads(element("r", QByteArray(room, 'x'))));
    EXPECT_FALSE(loads(element("r", QByteArray(room + 1, 'x'))));
}

TEST(DomLimits, LetContentModelsBe256LevelsDeep) {
    EXPECT_TRUE(loads(contentModel(velnor::MaximumNesting)));
    EXPECT_FALSE(loads(contentModel(velnor::MaximumNesting + 1)));
    EXPECT_FALSE(loads(contentModel(1000000)));
}

TEST(DomLimits, CountTheLevelsOfEachContentModelAlone) {
    const QByteArray shallow = "<!ELEMENT a (b)>";
    EXPECT_TRUE(loads("<!DOCTYPE r [" + shallow.repeated(1000) + "]><r/>"));
    EXPECT_TRUE(loads("<!DOCTYPE r [<!ELEMENT r (a)>]><r>" + QByteArray(1000, '(') + "</r>"));
    EXPECT_FALSE(loads("<!DOCTYPE r [" + shallow + "<!ELEMENT r " + QByteArray(1000, '(')));
}

TEST(DomLimits, HoldForBytesOfEveryEncoding) {
    const QString text = QString::fromLatin1(contentModel(1000));
    const QByteArray bytes("\xFF\xFE", 2);
    EXPECT_FALSE(
        loads(bytes + QByteArray(reinterpret_cast<const char*>(text.utf16()), text.size() * 2)));
}
