#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

namespace mergeloom {

class TreeView;

/// A node of the tree, with the members of the tree control that the rules speak of. Nodes live as long as
/// their tree is not cleared and never move in memory.
class TreeNode {
  public:
    [[nodiscard]] const std::string& Text() const;
    /// The node's key ("12k"), or an empty text for a node without one.
    [[nodiscard]] std::string Key() const;
    [[nodiscard]] const std::string& Tag() const;
    void SetTag(std::string_view tag);
    /// The key of the node's icon, or an empty text.
    [[nodiscard]] const std::string& Image() const;
    void SetImage(std::string_view image);
    /// The node's number in its tree, from 1, in the order in which nodes were added.
    [[nodiscard]] int Index() const { return index_; }

    [[nodiscard]] TreeNode* Parent() const { return nodeOrNone(parent_); }
    /// The first child, or none.
    [[nodiscard]] TreeNode* Child() const { return nodeOrNone(firstChild_); }
    [[nodiscard]] TreeNode* Next() const { return nodeOrNone(next_); }
    /// The last of the node's siblings; the node itself when it is the last or only one.
    [[nodiscard]] TreeNode* LastSibling() const;
    /// How many children the node has.
    [[nodiscard]] int Children() const { return childCount_; }

  private:
    friend class TreeView;

    [[nodiscard]] TreeNode* nodeOrNone(int index) const;

    // Four nodes stand for each control of a form, so a node is kept small: it holds the numbers of its
    // relatives and of its texts in place of pointers and strings. The number 0 stands for none.
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

/// A tree without a toolkit: what the designer shows and what the unattended run drops from.
class TreeView {
  public:
    TreeView() { Clear(); }
    TreeView(const TreeView&) = delete;
    TreeView& operator=(const TreeView&) = delete;

    /// Adds a node as the last child of the node with that index, or at the top level when it is 0. A key
    /// number above 0 gives the node the key of that number followed by "k". Raises the tree control's error
    /// 35600 when there is no node of the parent's index.
    TreeNode& Add(int parentIndex, int keyNumber, std::string_view text);
    /// The node of an index from 1 to Count; none for any other.
    [[nodiscard]] TreeNode* Item(int index);
    [[nodiscard]] int Count() const { return static_cast<int>(nodes_.size()) - 1; }
    /// The first node of the top level, or none.
    [[nodiscard]] TreeNode* First() { return Item(nodes_.front().firstChild_); }
    void Clear();

  private:
    friend class TreeNode;

    std::uint32_t addText(std::string_view text);
    std::uint32_t addSharedText(std::string_view text);

    std::deque<TreeNode> nodes_;     // the first one is not shown: the nodes of the top level hang under it
    std::deque<std::string> texts_;  // the first one is empty
    std::unordered_map<std::string_view, std::uint32_t> sharedTexts_;
};

}  // namespace mergeloom
