#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

namespace mergeloom {

class TreeView;

/// A node of the tree, with the members of the tree control that the program uses. Nodes live until their
/// tree is cleared and never move in memory.
class TreeNode {
  public:
    [[nodiscard]] const std::string& Text() const;
    /// Returns the node's key ("12k"), or an empty text for a node without one.
    [[nodiscard]] std::string Key() const;
    /// Returns the number in the key; 0 for a node without one.
    [[nodiscard]] int keyNumber() const { return keyNumber_; }
    [[nodiscard]] const std::string& Tag() const;
    void SetTag(std::string_view tag);
    /// Returns the key of the node's icon, or an empty text.
    [[nodiscard]] const std::string& Image() const;
    void SetImage(std::string_view image);
    /// Returns the node's number in its tree, from 1, in the order in which nodes were added.
    [[nodiscard]] int Index() const { return index_; }

    [[nodiscard]] TreeNode* Parent() const { return nodeOrNone(parent_); }
    /// Returns the first child, or null.
    [[nodiscard]] TreeNode* Child() const { return nodeOrNone(firstChild_); }
    [[nodiscard]] TreeNode* Next() const { return nodeOrNone(next_); }
    /// Returns the last of the node's siblings; the node itself when it is the last or only one.
    [[nodiscard]] TreeNode* LastSibling() const;
    /// Returns the number of children.
    [[nodiscard]] int Children() const { return childCount_; }

  private:
    friend class TreeView;

    [[nodiscard]] TreeNode* nodeOrNone(int index) const;

    // A form has four nodes for each control, so a node is kept small: it holds the numbers of its relatives
    // and of its texts instead of pointers and strings. The number 0 means none.
    TreeView* tree_ = nullptr;
    std::uint32_t text_ = 0;
    std::uint32_t tag_ = 0;
    std::uint32_t image_ = 0;
    int parent_ = 0;
    int firstChild_ = 0;
    int lastChild_ = 0;
    int next_ = 0;
    int keyNumber_ = 0;
    int index_ = 0;
    int childCount_ = 0;
};

/// A tree without a toolkit, which the designer shows and from which the unattended run drops.
class TreeView {
  public:
    TreeView() { Clear(); }
    TreeView(const TreeView&) = delete;
    TreeView& operator=(const TreeView&) = delete;

    /// Adds a node as the last child of the node with that index, or at the top level when it is 0. A key
    /// number above 0 gives the node the key of that number followed by "k". Raises the tree control's error
    /// 35600 when there is no node of the parent's index.
    TreeNode& Add(int parentIndex, int keyNumber, std::string_view text);
    /// Returns the node of an index from 1 to Count; null for any other.
    [[nodiscard]] TreeNode* Item(int index);
    [[nodiscard]] int Count() const { return static_cast<int>(nodes_.size()) - 1; }
    /// Returns the first node of the top level, or null.
    [[nodiscard]] TreeNode* First() { return Item(nodes_.front().firstChild_); }
    void Clear();

  private:
    friend class TreeNode;

    std::uint32_t addText(std::string_view text);
    std::uint32_t addSharedText(std::string_view text);

    std::deque<TreeNode> nodes_;     // the first one is not shown: it is the parent of the top level
    std::deque<std::string> texts_;  // the first one is empty
    std::unordered_map<std::string_view, std::uint32_t> sharedTexts_;
};

}  // namespace mergeloom
