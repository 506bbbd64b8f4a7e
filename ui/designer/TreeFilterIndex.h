#pragma once

#include "ui/designer/TreeModelRows.h"
#include "xml/TreeView.h"

#include <QString>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mergeloom {

/// What a search found: the rows to show and the nodes to expand, in the order of the tree's numbers, so that
/// every match is seen.
struct TreeFilterMatches {
    TreeModelRows rows;
    std::vector<int> expanded;
    int count = 0;  ///< how many nodes match by their own text
    int first = 0;  ///< the first of them; 0 for none
};

/// The text as it is searched: without case and accents.
std::string foldForSearch(const QString& text);

/// The texts of a tree, prepared for searching.
class TreeFilterIndex {
  public:
    /// The tree must outlive the index and not be changed.
    explicit TreeFilterIndex(TreeView& tree);

    /// The nodes whose text contains all words of a text, with the nodes above them. A control that matches
    /// keeps its drop kinds, collapsed, so that they can be dragged. Where isOutdated becomes true, nothing.
    [[nodiscard]] std::optional<TreeFilterMatches> find(const QString& words,
                                                        const std::function<bool()>& isOutdated) const;

  private:
    [[nodiscard]] std::string_view text(std::size_t number) const;

    TreeView& tree_;
    // Each different text once, and which one stands on a node: drop kinds repeat a handful of texts.
    std::string texts_;
    std::vector<std::size_t> textEnds_;
    std::vector<std::uint32_t> textOfNode_;
};

}  // namespace mergeloom
