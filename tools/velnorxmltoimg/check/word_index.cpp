#include "check/word_index.h"

#include <algorithm>

namespace {

constexpr int FarthestDistance = 2;

// How many letters must be left out, added, changed or exchanged with their neighbour.
int editDistance(const QString& a, const QString& b) {
    const auto columns = static_cast<size_t>(b.size()) + 1;
    std::vector<int> beforeLast(columns);
    std::vector<int> last(columns);
    std::vector<int> row(columns);
    for (size_t j = 0; j < columns; ++j) {
        last[j] = static_cast<int>(j);
    }
    for (int i = 1; i <= a.size(); ++i) {
        row[0] = i;
        for (int j = 1; j <= b.size(); ++j) {
            const auto at = static_cast<size_t>(j);
            const int changed = a[i - 1] == b[j - 1] ? 0 : 1;
            row[at] = std::min({last[at] + 1, row[at - 1] + 1, last[at - 1] + changed});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1]) {
                row[at] = std::min(row[at], beforeLast[at - 2] + 1);
            }
        }
        beforeLast.swap(last);
        last.swap(row);
    }
    return last.back();
}

// A short word becomes another one too easily.
bool isNear(int distance, const QString& a, const QString& b) {
    return distance <= FarthestDistance && distance * 3 <= std::max(a.size(), b.size());
}

} // namespace

tool::WordIndex::WordIndex() {
    add(QLatin1String(velnor::CanvasClass), velnor::canvasWords());
    for (const QString& itemClass : velnor::itemClasses()) {
        add(itemClass, velnor::itemWords(itemClass));
    }
}

void tool::WordIndex::add(const QString& owner, const velnor::Words& words) {
    owners.append(owner);
    for (const velnor::Word& word : words) {
        kinds[owner].insert(QLatin1String(word.element), word.value);
    }
}

std::optional<velnor::ValueKind> tool::WordIndex::kindOf(const QString& owner,
                                                         const QString& word) const {
    const QHash<QString, velnor::ValueKind> words = kinds.value(owner);
    const auto found = words.constFind(word);
    return found == words.constEnd() ? std::nullopt : std::optional<velnor::ValueKind>(*found);
}

QStringList tool::WordIndex::wordsOf(const QString& owner) const {
    QStringList words = kinds.value(owner).keys();
    words.sort();
    return words;
}

QStringList tool::WordIndex::ownersOf(const QString& word) const {
    QStringList found;
    for (const QString& owner : owners) {
        if (kindOf(owner, word)) {
            found.append(owner);
        }
    }
    return found;
}

QString tool::nearestWord(const QString& written, const QStringList& known) {
    QString nearest;
    int shortest = FarthestDistance + 1;
    for (const QString& word : known) {
        if (std::abs(word.size() - written.size()) > FarthestDistance) {
            continue;
        }
        const int distance = editDistance(written.toLower(), word.toLower());
        if (distance < shortest && isNear(distance, written, word)) {
            nearest = word;
            shortest = distance;
        }
    }
    return nearest;
}
