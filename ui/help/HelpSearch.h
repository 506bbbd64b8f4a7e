#pragma once

#include <QString>
#include <QStringList>
#include <cstddef>
#include <map>
#include <vector>

namespace mergeloom {

/// A topic that a search found.
struct HelpHit {
    QString title;
    QString topic;
};

/// An index of the words of all topics.
class HelpSearch {
  public:
    void addTopic(const QString& topic, const QString& title, const QString& text);

    /// Returns the topics in which a word begins with each of the query's words, without regard to case:
    /// those that have them in their title first, then those that have them most often. None for a query
    /// without words.
    [[nodiscard]] std::vector<HelpHit> find(const QString& query) const;

  private:
    using Weights = std::map<std::size_t, int>;  // of topics, by their place in topics_

    void addWords(const QString& text, int weight);
    [[nodiscard]] Weights weightsOf(const QString& beginning) const;

    std::vector<HelpHit> topics_;
    std::map<QString, Weights> words_;
};

}  // namespace mergeloom
