#pragma once

#include "ui/help/HelpSitemap.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

struct chmFile;

namespace mergeloom {

/// A compressed help file (.chm) and its files.
class ChmArchive {
  public:
    /// Opens the file. Raises kFileCouldNotBeRead with a sentence that names the file when it is missing or
    /// no help file.
    explicit ChmArchive(const std::string& path);

    [[nodiscard]] const std::string& path() const { return path_; }
    /// Returns the bytes of a file, by its path from the help file's root, without a "/" before it and with
    /// any letter case; none when there is no such file. Raises kFileCouldNotBeRead when its bytes cannot be
    /// read.
    [[nodiscard]] std::optional<QByteArray> read(const QString& name) const;
    /// Returns the paths of the author's files. Raises kFileCouldNotBeRead when they cannot be listed.
    [[nodiscard]] QStringList names() const;
    /// Raises kFileCouldNotBeRead: the help file is damaged.
    [[noreturn]] void refuseDamaged() const;

  private:
    std::string path_;
    std::shared_ptr<chmFile> file_;
};

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

/// A help file: its topics, contents, index, context numbers and the search in it. Its texts are UTF-8. All
/// members raise kFileCouldNotBeRead with a sentence that names the file when it turns out to be damaged.
class HelpFile {
  public:
    /// Opens the file. Raises kFileCouldNotBeRead with a sentence that names the file also when it is missing
    /// or is no help file.
    explicit HelpFile(const std::string& path);

    [[nodiscard]] const std::string& path() const { return archive_.path(); }
    [[nodiscard]] const QString& title() const { return title_; }
    /// Returns the topic that is shown by default.
    [[nodiscard]] const QString& defaultTopic() const { return defaultTopic_; }
    [[nodiscard]] const std::vector<HelpEntry>& contents() const { return contents_; }
    [[nodiscard]] const std::vector<HelpEntry>& index() const { return index_; }
    /// Returns the topic of each context number.
    [[nodiscard]] const std::map<std::uint32_t, QString>& contexts() const { return contexts_; }

    /// Returns the paths of all topics.
    [[nodiscard]] QStringList topics() const;
    /// Returns the text of a topic as HTML; none when there is no such topic. A place after "#" is ignored.
    [[nodiscard]] std::optional<QString> topicHtml(const QString& topic) const;
    /// Returns the bytes of a picture or style sheet; none when there is no such file.
    [[nodiscard]] std::optional<QByteArray> read(const QString& name) const;
    /// Returns the topics that have all words of the query (HelpSearch::find). The first search reads all
    /// topics.
    [[nodiscard]] std::vector<HelpHit> search(const QString& query);

  private:
    void readSystem();
    void readContexts();
    [[nodiscard]] std::vector<HelpEntry> readEntries(const QString& name) const;
    [[nodiscard]] HelpSearch makeSearch() const;

    ChmArchive archive_;
    QString title_;
    QString defaultTopic_;
    QString contentsName_;
    QString indexName_;
    std::vector<HelpEntry> contents_;
    std::vector<HelpEntry> index_;
    std::map<std::uint32_t, QString> contexts_;
    std::optional<HelpSearch> search_;
};

}  // namespace mergeloom
