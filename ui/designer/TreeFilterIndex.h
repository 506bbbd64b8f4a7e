#pragma once

#include "ui/designer/TreeModelRows.h"
#include "xml/TreeView.h"

#include <QString>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
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

}  // namespace mergeloom
