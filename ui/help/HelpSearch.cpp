#include "ui/help/HelpSearch.h"

#include <QRegularExpression>
#include <algorithm>
#include <utility>

namespace mergeloom {

namespace {

constexpr int kTitleWeight = 20;
constexpr int kTextWeight = 1;

QStringList wordsOf(const QString& text) {
    static const QRegularExpression gaps(QStringLiteral("[^\\w]+"),
                                         QRegularExpression::UseUnicodePropertiesOption);
    return text.toCaseFolded().split(gaps, Qt::SkipEmptyParts);
}

}  // namespace

void HelpSearch::addTopic(const QString& topic, const QString& title, const QString& text) {
    topics_.push_back({title, topic});
    addWords(title, kTitleWeight);
    addWords(text, kTextWeight);
}

void HelpSearch::addWords(const QString& text, int weight) {
    for (const QString& word : wordsOf(text)) {
        words_[word][topics_.size() - 1] += weight;
    }
}

HelpSearch::Weights HelpSearch::weightsOf(const QString& beginning) const {
    Weights weights;
    for (auto at = words_.lower_bound(beginning); at != words_.end() && at->first.startsWith(beginning);
         ++at) {
        for (const auto& [topic, weight] : at->second) {
            weights[topic] += weight;
        }
    }
    return weights;
}

std::vector<HelpHit> HelpSearch::find(const QString& query) const {
    const QStringList words = wordsOf(query);
    if (words.isEmpty()) return {};
    Weights common = weightsOf(words.front());
    for (const QString& word : words.mid(1)) {
        const Weights further = weightsOf(word);
        std::erase_if(common, [&](const auto& entry) { return !further.contains(entry.first); });
        for (auto& [topic, weight] : common) {
            weight += further.at(topic);
        }
    }
    std::vector<std::pair<std::size_t, int>> order(common.begin(), common.end());
    std::ranges::stable_sort(order, std::ranges::greater(), &std::pair<std::size_t, int>::second);
    std::vector<HelpHit> hits;
    std::ranges::transform(order, std::back_inserter(hits),
                           [&](const auto& entry) { return topics_[entry.first]; });
    return hits;
}

}  // namespace mergeloom
