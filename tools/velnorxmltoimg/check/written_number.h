// Numbers as a document has them.
#ifndef VELNOR_TOOL_WRITTEN_NUMBER_H
#define VELNOR_TOOL_WRITTEN_NUMBER_H

#include <QDomElement>

#include <optional>

namespace tool {

struct WrittenNumber {
    QDomElement element;
    int number;
};

// Of the child that counts: the last one of its name. Nothing where it is missing or no number.
std::optional<WrittenNumber> numberIn(const QDomElement& owner, const char* word);

} // namespace tool

#endif
