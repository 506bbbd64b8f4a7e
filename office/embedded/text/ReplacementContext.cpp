#include "office/embedded/text/ReplacementContext.h"

#include "base/AutomationError.h"

#include <algorithm>
#include <vector>

namespace mergeloom::embedded {

namespace {

/// Follows the fields that begin and end along a story and finds the code of any of them.
class CodeTracker {
  public:
    explicit CodeTracker(const opc::WordNames& names) : names_(names) {}

    /// Returns true if the item is in the code of a field or one of its marks.
    bool isCode(const Item* item) {
        switch (item->kind) {
            case ItemKind::FieldBegin:
                // The begin of a simple field includes its code.
                inCode_.push_back(names_.tagOf(item->node) != opc::WordTag::SimpleField);
                return true;
            case ItemKind::FieldSeparator:
                if (!inCode_.empty()) inCode_.back() = false;
                return true;
            case ItemKind::FieldEnd:
                if (!inCode_.empty()) inCode_.pop_back();
                return true;
            default:
                return item->kind == ItemKind::FieldCode ||
                       std::find(inCode_.begin(), inCode_.end(), true) != inCode_.end();
        }
    }

  private:
    const opc::WordNames& names_;
    std::vector<bool> inCode_;  ///< for each open field, whether its code has not ended
};

bool keepsText(opc::WordTag tag) {
    return tag == opc::WordTag::Hyperlink || tag == opc::WordTag::SmartTag ||
           tag == opc::WordTag::CustomXml || tag == opc::WordTag::Insertion || tag == opc::WordTag::MoveTo ||
           tag == opc::WordTag::Direction || tag == opc::WordTag::ContentControlContent;
}

}  // namespace

ReplacementContext::ReplacementContext(const Story& story, CharacterPosition start, CharacterPosition end)
    : story_(story),
      end_(end),
      first_(story.items().itemAt(start)),
      last_(story.items().itemAt(end - CharacterCount{1})) {}

TextSetting ReplacementContext::setting() const {
    return {formatting(), container()};
}

void ReplacementContext::checkNotDeleted() const {
    if (!isDeleted(first_) || !isDeleted(last_)) return;
    throw AutomationError(kCommandFailed, "The text at this place is marked as deleted.");
}

Formatting ReplacementContext::formatting() const {
    CodeTracker tracker(story_.names());
    Formatting ofMark;
    Formatting ofCode;
    for (const Item* item = first_; item; item = ItemTree::next(item)) {
        if (item->takesPlace() && story_.positionOf(item) >= end_) break;
        const bool isCode = tracker.isCode(item);
        const pugi::xml_node run = item->node.parent();
        if (!item->takesPlace() || story_.names().tagOf(run) != opc::WordTag::Run) continue;
        const pugi::xml_node properties = story_.names().child(run, opc::WordTag::RunProperties);
        if (!isCode) return properties;
        if (!ofMark) ofMark = properties;
        if (!ofCode && item->kind == ItemKind::FieldCode) ofCode = properties;
    }
    return ofCode ? ofCode : ofMark;
}

pugi::xml_node ReplacementContext::container() const {
    if (first_->kind == ItemKind::ParagraphMark || first_->kind == ItemKind::RowMark) return {};
    pugi::xml_node element = first_->node.parent();
    while (element && element != story_.root() && story_.names().tagOf(element) != opc::WordTag::Paragraph) {
        if (keepsText(story_.names().tagOf(element)) && isInside(last_->node, element)) return element;
        element = element.parent();
    }
    return {};
}

bool ReplacementContext::isDeleted(const Item* item) const {
    return story_.names().ancestor(item->node, opc::WordTag::Deletion) ||
           story_.names().ancestor(item->node, opc::WordTag::MoveFrom);
}

}  // namespace mergeloom::embedded
