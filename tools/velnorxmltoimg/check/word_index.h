// The vocabulary of layouts, ready to be asked by name.
#ifndef VELNOR_TOOL_WORD_INDEX_H
#define VELNOR_TOOL_WORD_INDEX_H

#include "document/vocabulary.h"

#include <QHash>
#include <QStringList>

#include <optional>

namespace tool {

// An owner of words is the canvas or a class of items, by its name.
class WordIndex {
public:
    WordIndex();

    bool knowsOwner(const QString& owner) const { return kinds.contains(owner); }
    std::optional<velnor::ValueKind> kindOf(const QString& owner, const QString& word) const;
    QStringList wordsOf(const QString& owner) const;

    // Which of the owners know the word.
    QStringList ownersOf(const QString& word) const;

private:
    void add(const QString& owner, const velnor::Words& words);

    QStringList owners;
    QHash<QString, QHash<QString, velnor::ValueKind>> kinds;
};

// The word that was most likely meant; null where none is near.
QString nearestWord(const QString& written, const QStringList& known);

} // namespace tool

#endif
