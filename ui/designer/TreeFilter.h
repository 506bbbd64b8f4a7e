#pragma once

#include "ui/designer/TreeFilterIndex.h"
#include "xml/TreeView.h"

#include <QObject>
#include <QString>
#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

namespace mergeloom {

/// Searches a tree in a thread of its own, so that typing never waits for it. Only the newest search is
/// answered.
class TreeFilter : public QObject {
    Q_OBJECT
  public:
    explicit TreeFilter(QObject* parent = nullptr);
    ~TreeFilter() override;

    /// The tree that is searched from now on, or none; no search is under way then.
    void setTree(std::shared_ptr<TreeView> tree);
    /// Searches for the nodes that contain all words of a text.
    void find(const QString& words);
    /// Forgets the search that is under way.
    void cancel();

  Q_SIGNALS:
    /// The answer to the newest search, which whoever receives it may take apart.
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
