#pragma once

#include "ui/designer/TreeModel.h"
#include "xml/TreeView.h"

#include <QObject>
#include <QString>
#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace mergeloom {

/// The result of a search: the rows to show and the nodes to expand, in the order of the tree's numbers, so
/// that every match is seen.
struct TreeFilterMatches {
    std::shared_ptr<const TreeModelRows> rows;
    std::vector<int> expanded;
    int count = 0;  ///< how many nodes match by their own text
    int first = 0;  ///< the first of them; 0 for none
};

/// Returns the text for searching: without case and accents.
std::string foldForSearch(const QString& text);

/// The texts of a tree, prepared for searching.
class TreeFilterIndex {
  public:
    /// The tree must not be changed afterwards; it may be destroyed.
    explicit TreeFilterIndex(TreeView& tree);

    /// Finds the nodes whose text contains all words of a text, with the nodes above them. A control that
    /// matches keeps its drop kinds, collapsed, so that they can be dragged. Returns none when isOutdated
    /// becomes true.
    [[nodiscard]] std::optional<TreeFilterMatches> find(const QString& words,
                                                        const std::function<bool()>& isOutdated) const;

  private:
    [[nodiscard]] TreeFilterMatches show(const std::vector<char>& matching) const;
    [[nodiscard]] std::string_view text(std::size_t number) const;

    // Each different text once, and its number for each node: drop kinds repeat a handful of texts.
    std::string texts_;
    std::vector<std::size_t> textEnds_;
    // By the nodes' Index.
    std::vector<std::uint32_t> textOfNode_;
    std::vector<int> parents_;
    std::vector<char> isDropKind_;
};

/// Searches a tree in a thread of its own, so that typing never waits for it. Only the newest search has a
/// result.
class TreeFilter : public QObject {
    Q_OBJECT
  public:
    explicit TreeFilter(QObject* parent = nullptr);
    ~TreeFilter() override;

    /// Sets the tree that is searched from now on, or none; cancels the current search.
    void setTree(std::shared_ptr<TreeView> tree);
    /// Searches for the nodes that contain all words of a text.
    void find(const QString& words);
    /// Cancels the current search.
    void cancel();

  Q_SIGNALS:
    /// Emitted with the result of the newest search, which the receiver may modify.
    void found(const std::shared_ptr<TreeFilterMatches>& matches);

  private:
    struct Search {
        std::shared_ptr<TreeView> tree;
        QString words;  // without any, the tree is only made ready
        int number = 0;
    };

    void ask(const QString& words);
    void work(const std::stop_token& stop);
    void answer(const Search& search, const TreeFilterIndex& index);

    std::mutex mutex_;
    std::condition_variable_any asked_;
    Search next_;
    std::atomic<int> newest_ = 0;
    std::jthread thread_;
};

}  // namespace mergeloom
