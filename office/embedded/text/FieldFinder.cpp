#include "office/embedded/text/FieldFinder.h"

#include <optional>
#include <utility>

namespace mergeloom::embedded {

namespace {

/// Follows the fields that begin and end along a story.
class FieldScan {
  public:
    explicit FieldScan(const opc::WordNames& names) : names_(names) {}

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

    /// Returns the fields, also those that never ended.
    std::vector<FieldItems> result() {
        for (std::size_t field = 0; field < fields_.size(); ++field)
            fields_[field].isInCode = isInCode(places_[field]);
        return std::move(fields_);
    }

  private:
    /// The place at which a field begins: in the code or the result of the innermost field that is open
    /// there.
    struct Place {
        std::optional<std::size_t> outer;
        bool codeRuns = false;
    };

    void begin(Item* item) {
        Place place;
        if (!open_.empty()) place = {open_.back(), codeRuns(fields_[open_.back()])};
        places_.push_back(place);
        open_.push_back(fields_.size());
        fields_.push_back({item});
    }

    /// Returns whether the code of the field still goes on; that of w:fldSimple is an attribute.
    [[nodiscard]] bool codeRuns(const FieldItems& field) const {
        return !field.separator && names_.tagOf(field.begin->node) != opc::WordTag::SimpleField;
    }

    /// Returns whether the place is in the code of a field. The outer field is known by then; one that never
    /// ended is none, but there may be others around it.
    [[nodiscard]] bool isInCode(const Place& place) const {
        if (!place.outer) return false;
        const FieldItems& outer = fields_[*place.outer];
        return outer.isInCode || (place.codeRuns && outer.end);
    }

    const opc::WordNames& names_;
    std::vector<FieldItems> fields_;
    std::vector<Place> places_;  ///< of the fields
    std::vector<std::size_t> open_;
};

}  // namespace

std::vector<FieldItems> fieldsBetween(const Story& story, CharacterPosition start, CharacterPosition end) {
    FieldScan scan(story.names());
    for (Item* item = story.firstItemAt(start); item; item = ItemTree::next(item)) {
        const bool isAfterRange = item->takesPlace() && story.positionOf(item) >= end;
        if (isAfterRange && !scan.hasOpen()) break;
        scan.take(item);
    }
    std::vector<FieldItems> fields = scan.result();
    std::erase_if(fields, [&](const FieldItems& field) {
        return !field.end || story.positionOf(field.begin) < start || story.positionOf(field.begin) >= end;
    });
    return fields;
}

}  // namespace mergeloom::embedded
