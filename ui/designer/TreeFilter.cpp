#include "ui/designer/TreeFilter.h"

#include <QStringList>
#include <algorithm>
#include <unordered_map>
#include <utility>

namespace mergeloom {

namespace {

/// The number of nodes or texts after which the search checks again whether it is still wanted.
constexpr std::size_t kCheckInterval = 4096;

bool isAsciiText(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

std::string foldText(const std::string& text) {
    if (!isAsciiText(text)) return foldForSearch(QString::fromStdString(text));
    std::string folded = text;
    std::ranges::transform(folded, folded.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return folded;
}

std::vector<std::string> foldedWords(const QString& words) {
    std::vector<std::string> folded;
    for (const QString& word : words.simplified().split(u' ', Qt::SkipEmptyParts))
        folded.push_back(foldForSearch(word));
    return folded;
}

bool containsAll(std::string_view text, const std::vector<std::string>& words) {
    return std::ranges::all_of(
        words, [&](const std::string& word) { return text.find(word) != std::string_view::npos; });
}

/// Returns true if the node is a drop kind: one without a key below one with a key.
bool isDropKind(const TreeNode& node) {
    const TreeNode* const parent = node.Key().empty() ? node.Parent() : nullptr;
    return parent != nullptr && !parent->Key().empty();
}

std::vector<int> numbersOf(const std::vector<char>& flags) {
    std::vector<int> numbers;
    for (std::size_t at = 0; at < flags.size(); ++at) {
        if (flags[at] != 0) numbers.push_back(static_cast<int>(at));
    }
    return numbers;
}

}  // namespace

std::string foldForSearch(const QString& text) {
    QString folded;
    for (const QChar character : text.normalized(QString::NormalizationForm_KD).toUpper().toCaseFolded()) {
        if (character.category() != QChar::Mark_NonSpacing) folded += character;
    }
    return folded.toStdString();
}

TreeFilterIndex::TreeFilterIndex(TreeView& tree) : parents_(TreeModelRows::parentsIn(tree)) {
    std::unordered_map<const std::string*, std::uint32_t> known;
    textOfNode_.push_back(0);
    isDropKind_.push_back(0);
    for (int number = 1; number <= tree.Count(); ++number) {
        const TreeNode& node = *tree.Item(number);
        isDropKind_.push_back(isDropKind(node) ? 1 : 0);
        // Nodes with the same text share it, so its address distinguishes it from others.
        const auto next = static_cast<std::uint32_t>(textEnds_.size());
        const auto [place, isNew] = known.try_emplace(&node.Text(), next);
        textOfNode_.push_back(place->second);
        if (!isNew) continue;
        texts_ += foldText(node.Text());
        textEnds_.push_back(texts_.size());
    }
}

std::string_view TreeFilterIndex::text(std::size_t number) const {
    const std::size_t start = number == 0 ? 0 : textEnds_[number - 1];
    return std::string_view(texts_).substr(start, textEnds_[number] - start);
}

std::optional<TreeFilterMatches> TreeFilterIndex::find(const QString& words,
                                                       const std::function<bool()>& isOutdated) const {
    const std::vector<std::string> folded = foldedWords(words);
    std::vector<char> textMatches(textEnds_.size());
    for (std::size_t number = 0; number < textMatches.size(); ++number) {
        if (number % kCheckInterval == 0 && isOutdated()) return {};
        textMatches[number] = containsAll(text(number), folded) ? 1 : 0;
    }
    std::vector<char> matching(parents_.size());
    for (std::size_t node = 1; node < parents_.size(); ++node)
        matching[node] = textMatches[textOfNode_[node]];
    if (isOutdated()) return {};
    return show(matching);
}

TreeFilterMatches TreeFilterIndex::show(const std::vector<char>& matching) const {
    std::vector<char> shown = matching;
    std::vector<char> expanded(parents_.size());
    // Parents have smaller numbers than their children, so one pass backwards over the nodes reaches every
    // ancestor.
    for (std::size_t node = parents_.size() - 1; node > 0; --node) {
        if (shown[node] == 0) continue;
        const auto parent = static_cast<std::size_t>(parents_[node]);
        shown[parent] = 1;
        expanded[parent] = 1;
    }
    expanded[0] = 0;
    for (std::size_t node = 1; node < parents_.size(); ++node) {
        if (isDropKind_[node] != 0 && matching[static_cast<std::size_t>(parents_[node])] != 0)
            shown[node] = 1;
    }
    const std::vector<int> matches = numbersOf(matching);
    return {std::make_shared<TreeModelRows>(parents_, shown), numbersOf(expanded),
            static_cast<int>(matches.size()), matches.empty() ? 0 : matches.front()};
}

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
