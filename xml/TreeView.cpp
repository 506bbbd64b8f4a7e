#include "xml/TreeView.h"

#include "base/AutomationError.h"

namespace mergeloom {

namespace {

/// The tree control's own error.
constexpr ErrorNumber kIndexOutOfBounds = 35600;

}  // namespace

const std::string& TreeNode::Text() const {
    return tree_->texts_[text_];
}

std::string TreeNode::Key() const {
    return keyNumber_ > 0 ? std::to_string(keyNumber_) + "k" : std::string();
}

const std::string& TreeNode::Tag() const {
    return tree_->texts_[tag_];
}

void TreeNode::SetTag(std::string_view tag) {
    tag_ = tree_->addSharedText(tag);
}

const std::string& TreeNode::Image() const {
    return tree_->texts_[image_];
}

void TreeNode::SetImage(std::string_view image) {
    image_ = tree_->addSharedText(image);
}

TreeNode* TreeNode::LastSibling() const {
    return nodeOrNone(tree_->nodes_[static_cast<std::size_t>(parent_)].lastChild_);
}

TreeNode* TreeNode::nodeOrNone(int index) const {
    return tree_->Item(index);
}

TreeNode& TreeView::Add(int parentIndex, int keyNumber, std::string_view text) {
    if (parentIndex < 0 || parentIndex > Count()) {
        throw AutomationError(kIndexOutOfBounds, "Index out of bounds");
    }
    TreeNode& parent = nodes_[static_cast<std::size_t>(parentIndex)];
    TreeNode& node = nodes_.emplace_back();
    node.tree_ = this;
    node.index_ = Count();
    node.parent_ = parentIndex;
    node.keyNumber_ = keyNumber;
    // The nodes without a key are the drop kinds, whose few texts are repeated under every control.
    node.text_ = keyNumber > 0 ? addText(text) : addSharedText(text);

    if (parent.lastChild_ == 0) {
        parent.firstChild_ = node.index_;
    } else {
        nodes_[static_cast<std::size_t>(parent.lastChild_)].next_ = node.index_;
    }
    parent.lastChild_ = node.index_;
    ++parent.childCount_;
    return node;
}

TreeNode* TreeView::Item(int index) {
    if (index < 1 || index > Count()) return nullptr;
    return &nodes_[static_cast<std::size_t>(index)];
}

void TreeView::Clear() {
    sharedTexts_.clear();
    texts_.clear();
    nodes_.clear();
    texts_.emplace_back();
    nodes_.emplace_back();
}

std::uint32_t TreeView::addText(std::string_view text) {
    texts_.emplace_back(text);
    return static_cast<std::uint32_t>(texts_.size() - 1);
}

std::uint32_t TreeView::addSharedText(std::string_view text) {
    const auto known = sharedTexts_.find(text);
    if (known != sharedTexts_.end()) return known->second;
    const std::uint32_t number = addText(text);
    sharedTexts_.emplace(texts_.back(), number);
    return number;
}

}  // namespace mergeloom
