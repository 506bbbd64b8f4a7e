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
