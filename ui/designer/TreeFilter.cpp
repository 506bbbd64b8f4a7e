#include "ui/designer/TreeFilter.h"

#include <utility>

namespace mergeloom {

TreeFilter::TreeFilter(QObject* parent)
    : QObject(parent), thread_([this](const std::stop_token& stop) { work(stop); }) {}

TreeFilter::~TreeFilter() {
    cancel();
}

void TreeFilter::setTree(std::shared_ptr<TreeView> tree) {
    {
        const std::lock_guard lock(mutex_);
        next_.tree = std::move(tree);
    }
    ask({});
}

void TreeFilter::find(const QString& words) {
    ask(words);
}

void TreeFilter::cancel() {
    ask({});
}

void TreeFilter::ask(const QString& words) {
    {
        const std::lock_guard lock(mutex_);
        next_.words = words;
        next_.number = ++newest_;
    }
    asked_.notify_one();
}

void TreeFilter::work(const std::stop_token& stop) {
    Search search;
    std::unique_ptr<TreeFilterIndex> index;
    while (true) {
        Search next;
        {
            std::unique_lock lock(mutex_);
            if (!asked_.wait(lock, stop, [&] { return next_.number != search.number; })) return;
            next = next_;
        }
        if (next.tree != search.tree) {
            index.reset();
            if (next.tree) index = std::make_unique<TreeFilterIndex>(*next.tree);
        }
        search = std::move(next);
        if (index && !search.words.isEmpty()) answer(search, *index);
    }
}

void TreeFilter::answer(const Search& search, const TreeFilterIndex& index) {
    const int number = search.number;
    auto matches = index.find(search.words, [&] { return newest_ != number; });
    if (!matches) return;
    auto kept = std::make_shared<TreeFilterMatches>(std::move(*matches));
    QMetaObject::invokeMethod(
        this,
        [this, number, kept] {
            if (newest_ == number) Q_EMIT found(kept);
        },
        Qt::QueuedConnection);
}

}  // namespace mergeloom
