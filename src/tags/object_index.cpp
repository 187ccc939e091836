#include "tags/object_index.h"

#include <algorithm>

namespace {

constexpr int Root = 0;

} // namespace

bool velnor::readPlainText(const QDomNode& element, QString& text) {
    const QDomNode child = element.firstChild();
    if (child.isNull()) {
        text = QLatin1String("");
        return true;
    }
    if (!child.nextSibling().isNull() || !child.isText()) {
        return false;
    }
    text = element.toElement().text();
    return true;
}

namespace velnor {

ObjectIndex::ObjectIndex(const QDomElement& root) {
    places.push_back({root});
    addChildren(Root);
}

void ObjectIndex::addChildren(int parent) {
    const int begin = static_cast<int>(places.size());
    for (QDomElement child = places[parent].element.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        addChild(parent, child);
    }
    const int end = static_cast<int>(places.size());
    for (int i = begin; i < end; ++i) {
        places[i].order = nextOrder++;
        const QDomElement element = places[i].element;
        auto& sameName = elements[element.tagName()];
        sameName.emplace_hint(sameName.end(), positionOf(places[i].order), element);
        addChildren(i);
    }
    places[parent].begin = begin;
    places[parent].end = static_cast<int>(places.size());
    places[parent].lastOrder = nextOrder - 1;
}

void ObjectIndex::addChild(int parent, const QDomElement& child) {
    const int number = static_cast<int>(places.size());
    const int domain = places[parent].domain;
    places.push_back({child, places[parent].depth + 1, number});
    if (!child.hasAttributes()) {
        return;
    }
    if (!child.attribute(QStringLiteral("class")).isEmpty()) {
        places[number].domain = domain;
    }
    addAttribute(ids, child.attribute(QStringLiteral("id")), domain, number);
    addAttribute(links, child.attribute(QStringLiteral("link")), domain, number);
}

void ObjectIndex::addAttribute(Attributes& attributes, const QString& value, int domain,
                               int number) {
    if (!value.isEmpty()) {
        attributes[{domain, value}].push_back(number);
    }
}

int ObjectIndex::first(const Attributes& attributes, int searched, const QString& value) const {
    const Place& place = places[searched];
    const auto numbers = attributes.constFind({place.domain, value});
    if (numbers == attributes.constEnd()) {
        return NoObject;
    }
    const auto found = std::lower_bound(numbers->begin(), numbers->end(), place.begin);
    return found == numbers->end() || *found >= place.end ? NoObject : *found;
}

int ObjectIndex::object(const QString& id) const {
    return first(ids, Root, id);
}

QDomElement ObjectIndex::link(int object, const QString& name) const {
    const int number = first(links, object, name);
    return number == NoObject ? QDomElement() : places[number].element;
}

QDomElement ObjectIndex::property(int object, const QString& name) const {
    const auto sameName = elements.constFind(name);
    if (sameName == elements.constEnd()) {
        return {};
    }
    const Place& place = places[object];
    const auto found = sameName->upper_bound(positionOf(place.order));
    return found == sameName->end() || found->first > positionBehind(place) ? QDomElement()
                                                                            : found->second;
}

void ObjectIndex::appendProperty(int object, const QDomElement& property) {
    if (property.isNull()) {
        return;
    }
    places[object].element.appendChild(property);
    elements[property.tagName()].emplace(positionBehind(places[object]), property);
}

// Leaves room behind every element for those that are appended.
ObjectIndex::Position ObjectIndex::positionOf(int order) {
    return static_cast<Position>(order) << 32;
}

// Where several elements end together, the innermost ends first.
ObjectIndex::Position ObjectIndex::positionBehind(const Place& place) {
    return positionOf(place.lastOrder) + (Position{1} << 31) - place.depth;
}

} // namespace velnor
