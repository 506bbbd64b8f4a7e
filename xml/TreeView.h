#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>

namespace mergeloom {

/// A node of the tree, with the members of the tree control that the rules speak of. Nodes live as long as
/// their tree is not cleared and never move in memory.
class TreeNode {
  public:
    [[nodiscard]] const std::string& Text() const { return text_; }
    /// The node's key ("12k"), or an empty text for a node without one.
    [[nodiscard]] std::string Key() const;
    [[nodiscard]] const std::string& Tag() const { return tag_; }
    void SetTag(std::string_view tag) { tag_ = tag; }
    /// The key of the node's icon, or an empty text.
    [[nodiscard]] const std::string& Image() const { return image_; }
    void SetImage(std::string_view image) { image_ = image; }
    /// The node's number in its tree, from 1, in the order in which nodes were added.
    [[nodiscard]] int Index() const { return index_; }

    [[nodiscard]] TreeNode* Parent() const { return parent_; }
    /// The first child, or none.
    [[nodiscard]] TreeNode* Child() const { return firstChild_; }
    [[nodiscard]] TreeNode* Next() const { return next_; }
    /// The last of the node's siblings; the node itself when it is the last or only one.
    [[nodiscard]] TreeNode* LastSibling() const;
    /// How many children the node has.
    [[nodiscard]] int Children() const { return childCount_; }

  private:
    friend class TreeView;

    std::string text_;
    std::string tag_;
    std::string image_;
    TreeNode* parent_ = nullptr;
    TreeNode* firstChild_ = nullptr;
    TreeNode* lastChild_ = nullptr;
    TreeNode* next_ = nullptr;
    int keyNumber_ = 0;
    int index_ = 0;
    int childCount_ = 0;
};

/// A tree without a toolkit: what the designer shows and what the unattended run drops from.
class TreeView {
  public:
    TreeView() = default;
    TreeView(const TreeView&) = delete;
    TreeView& operator=(const TreeView&) = delete;

    /// Adds a node as the last child of the node with that index, or at the top level when it is 0. A key
    /// number above 0 gives the node the key of that number followed by "k".
    TreeNode& Add(int parentIndex, int keyNumber, std::string_view text);
    /// The node of an index from 1 to Count; none for any other.
    [[nodiscard]] TreeNode* Item(int index);
    [[nodiscard]] int Count() const { return static_cast<int>(nodes_.size()); }
    /// The first node of the top level, or none.
    [[nodiscard]] TreeNode* First();
    void Clear();

  private:
    std::deque<TreeNode> nodes_;
    TreeNode root_;
};

}  // namespace mergeloom
