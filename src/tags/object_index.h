// Where the objects of a tree, their links and their properties are: for many look-ups in one tree.
#ifndef VELNOR_TAGS_OBJECT_INDEX_H
#define VELNOR_TAGS_OBJECT_INDEX_H

#include <QDomElement>
#include <QHash>
#include <QPair>
#include <QString>

#include <map>
#include <vector>

namespace velnor {

// The text of an element that holds plain text or nothing. False for any other content.
bool readPlainText(const QDomNode& element, QString& text);

// Finds what VelnorXml::matchIDInRootElement, VelnorXml::matchLinkInRootElement and
// QDomElement::elementsByTagName find, in a time that does not grow with the tree.
//
// Built once for a tree, it stays right while object tags are applied: they change texts and append
// elements by appendProperty. Such an element has no attributes, so it can become a property but
// neither an object nor a link.
class ObjectIndex {
public:
    static constexpr int NoObject = -1;

    explicit ObjectIndex(const QDomElement& root);

    int object(const QString& id) const;
    // These three are of an object that the first has found. Null where there is none.
    QDomElement link(int object, const QString& name) const;
    QDomElement property(int object, const QString& name) const;
    // Makes the element the last child of an object without a property of that name.
    void appendProperty(int object, const QDomElement& property);

private:
    // Elements are numbered level by level within each branch, as the searches go. What lies inside
    // an element then has the numbers from `begin` to `end`.
    struct Place {
        QDomElement element;
        int depth = 0;
        // The nearest element without a class, this one included, or the root. A search goes down
        // only through elements with a class, so it stays inside the domain that it begins in.
        int domain = 0;
        int begin = 0;
        int end = 0;
        // The same in the order of the document.
        int order = 0;
        int lastOrder = 0;
    };
    using Position = qint64;
    // The numbers, in ascending order, of the elements of one domain that share a value.
    using Attributes = QHash<QPair<int, QString>, std::vector<int>>;

    void addChildren(int parent);
    void addChild(int parent, const QDomElement& child);
    static void addAttribute(Attributes& attributes, const QString& value, int domain, int number);
    int first(const Attributes& attributes, int searched, const QString& value) const;
    static Position positionOf(int order);
    static Position positionBehind(const Place& place);

    std::vector<Place> places;
    int nextOrder = 1;
    Attributes ids;
    Attributes links;
    QHash<QString, std::map<Position, QDomElement>> elements; // by name
};

} // namespace velnor

#endif
