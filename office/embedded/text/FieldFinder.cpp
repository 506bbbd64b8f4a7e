#include "office/embedded/text/FieldFinder.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace mergeloom::embedded {

namespace {

/// Follows the fields that open and close along a story.
class FieldScan {
  public:
    explicit FieldScan(const WordNames& names) : names_(names) {}

    [[nodiscard]] bool hasOpen() const { return !open_.empty(); }

    void take(Item* item) {
        if (item->kind == ItemKind::FieldBegin) return begin(item);
        if (open_.empty()) return;
        if (item->kind == ItemKind::FieldSeparator) {
            fields_[open_.back()].separator = item;
        } else if (item->kind == ItemKind::FieldEnd) {
            fields_[open_.back()].end = item;
            open_.pop_back();
        }
    }

    /// Returns the fields, with those that never ended.
    std::vector<FieldItems> result() {
        for (std::size_t field = 0; field < fields_.size(); ++field)
            fields_[field].isInCode = std::ranges::any_of(
                codesAround_[field], [&](std::size_t outer) { return fields_[outer].end; });
        return std::move(fields_);
    }

  private:
    void begin(Item* item) {
        codesAround_.emplace_back();
        std::ranges::copy_if(open_, std::back_inserter(codesAround_.back()),
                             [&](std::size_t outer) { return isInCodeNow(fields_[outer]); });
        open_.push_back(fields_.size());
        fields_.push_back({item});
    }

    /// The code of w:fldSimple is an attribute.
    [[nodiscard]] bool isInCodeNow(const FieldItems& outer) const {
        return !outer.separator && names_.tagOf(outer.begin->node) != WordTag::SimpleField;
    }

    const WordNames& names_;
    std::vector<FieldItems> fields_;
    std::vector<std::vector<std::size_t>>
        codesAround_;  ///< for each field, those whose code ran when it began
    std::vector<std::size_t> open_;
};

}  // namespace

std::vector<FieldItems> fieldsBetween(const Story& story, CharacterPosition start, CharacterPosition end) {
    FieldScan scan(story.names());
    for (Item* item = story.firstItemAt(start); item; item = ItemTree::next(item)) {
        const bool behind = item->takesPlace() && ItemTree::positionOf(item) >= end;
        if (behind && !scan.hasOpen()) break;
        scan.take(item);
    }
    std::vector<FieldItems> fields = scan.result();
    std::erase_if(fields, [&](const FieldItems& field) {
        return !field.end || ItemTree::positionOf(field.begin) < start ||
               ItemTree::positionOf(field.begin) >= end;
    });
    return fields;
}

}  // namespace mergeloom::embedded
