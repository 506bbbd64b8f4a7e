#include "ui/designer/TreeFilterIndex.h"

#include <QStringList>
#include <algorithm>
#include <unordered_map>
#include <utility>

namespace mergeloom {

namespace {

/// How many nodes or texts are looked at before the search asks again whether anybody waits for it.
constexpr std::size_t kAskingEvery = 4096;

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

/// The nodes that a search shows, by their Index.
struct ShownNodes {
    explicit ShownNodes(std::size_t size) : matching(size), shown(size), expanded(size) {}

    std::vector<bool> matching;
    std::vector<bool> shown;
    std::vector<bool> expanded;
};

/// Parents have smaller numbers than their children, so one way back over the nodes reaches every ancestor.
void showAncestors(TreeView& tree, ShownNodes& nodes) {
    for (int number = tree.Count(); number > 0; --number) {
        const auto at = static_cast<std::size_t>(number);
        if (nodes.matching[at]) nodes.shown[at] = true;
        if (!nodes.shown[at]) continue;
        const TreeNode* const parent = tree.Item(number)->Parent();
        if (parent == nullptr) continue;
        const auto above = static_cast<std::size_t>(parent->Index());
        nodes.shown[above] = true;
        nodes.expanded[above] = true;
    }
}

/// Drop kinds are the nodes without a key below one with a key.
void showDropKindsOfMatches(TreeView& tree, ShownNodes& nodes) {
    for (int number = 1; number <= tree.Count(); ++number) {
        const TreeNode& node = *tree.Item(number);
        const TreeNode* const parent = node.Key().empty() ? node.Parent() : nullptr;
        if (parent == nullptr || parent->Key().empty()) continue;
        const auto at = static_cast<std::size_t>(number);
        if (nodes.matching[static_cast<std::size_t>(parent->Index())]) nodes.shown[at] = true;
    }
}

std::vector<int> numbersOf(const std::vector<bool>& flags) {
    std::vector<int> numbers;
    for (std::size_t at = 0; at < flags.size(); ++at) {
        if (flags[at]) numbers.push_back(static_cast<int>(at));
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

TreeFilterIndex::TreeFilterIndex(TreeView& tree) : tree_(tree) {
    std::unordered_map<const std::string*, std::uint32_t> known;
    textOfNode_.reserve(static_cast<std::size_t>(tree.Count()) + 1);
    textOfNode_.push_back(0);
    for (int number = 1; number <= tree.Count(); ++number) {
        const TreeNode& node = *tree.Item(number);
        // Nodes with the same text share it, so its place in memory tells it from the others.
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
    std::vector<bool> matchingTexts(textEnds_.size());
    for (std::size_t number = 0; number < matchingTexts.size(); ++number) {
        if (number % kAskingEvery == 0 && isOutdated()) return {};
        matchingTexts[number] = containsAll(text(number), folded);
    }

    ShownNodes nodes(textOfNode_.size());
    for (std::size_t at = 1; at < textOfNode_.size(); ++at)
        nodes.matching[at] = matchingTexts[textOfNode_[at]];
    showAncestors(tree_, nodes);
    showDropKindsOfMatches(tree_, nodes);
    if (isOutdated()) return {};
    const std::vector<int> matching = numbersOf(nodes.matching);
    return TreeFilterMatches{TreeModelRows(tree_, nodes.shown), numbersOf(nodes.expanded),
                             static_cast<int>(matching.size()), matching.empty() ? 0 : matching.front()};
}

}  // namespace mergeloom
