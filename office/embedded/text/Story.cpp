#include "office/embedded/text/Story.h"

#include "base/AutomationError.h"
#include "base/Text.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

namespace mergeloom::embedded {

namespace {

/// Returns the text of a child of a run that represents one character (ECMA-376 Part 1, 17.3.3).
std::string characterText(std::string_view name, const char* breakType) {
    if (name == "tab" || name == "ptab") return "\t";
    if (name == "noBreakHyphen") return "\x1E";
    if (name == "softHyphen") return "\x1F";
    if (name == "footnoteReference" || name == "endnoteReference") return "\x02";
    if (name == "commentReference") return "\x05";
    if (name == "br" && std::string_view(breakType) == "page") return "\f";
    if (name == "br" && std::string_view(breakType) == "column") return "\x0E";
    if (name == "br" || name == "cr") return "\v";
    return "(";
}

/// Returns the part of an item's text between two units, counted from the item's start.
std::string slice(const std::string& text, std::int64_t from, std::int64_t to) {
    const std::size_t first = byteOffset(text, {from});
    return text.substr(first, byteOffset(text, {to}) - first);
}

[[noreturn]] void refuseRange(CharacterPosition start, CharacterPosition end, const char* why) {
    throw AutomationError(kCommandFailed, "The range from " + std::to_string(start.value) + " to " +
                                              std::to_string(end.value) + why);
}

}  // namespace

TrackedRange::TrackedRange(Story& story, CharacterPosition start, CharacterPosition end)
    : story_(&story), start_(start), end_(end) {
    story_->add(*this);
}

TrackedRange::~TrackedRange() {
    story_->remove(*this);
}

void TrackedRange::set(CharacterPosition start, CharacterPosition end) {
    start_ = start;
    end_ = std::max(start, end);
}

void TrackedRange::moveTo(Story& story, CharacterPosition start, CharacterPosition end) {
    story_->remove(*this);
    story_ = &story;
    story_->add(*this);
    set(start, end);
}

std::string textOf(const Story& story, const Item* item) {
    switch (item->kind) {
        case ItemKind::Text:
            return item->node.child_value();
        case ItemKind::Character:
            return characterText(opc::localName(item->node), story.names().value(item->node, "type"));
        case ItemKind::InlineObject:
            return "/";
        case ItemKind::ParagraphMark:
            return story.endsCell(item) ? "\r\a" : "\r";
        case ItemKind::RowMark:
            return "\r\a";
        default:
            return {};
    }
}

void collectTextBoxes(const opc::WordNames& names, pugi::xml_node node, std::vector<pugi::xml_node>& found) {
    for (const pugi::xml_node child : node.children()) {
        if (names.tagOf(child) == opc::WordTag::TextBoxContent) {
            found.push_back(child);
        } else {
            collectTextBoxes(names, child, found);
        }
    }
}

bool isInside(pugi::xml_node node, pugi::xml_node element) {
    while (node && node != element)
        node = node.parent();
    return static_cast<bool>(node);
}

CharacterRange characterRangeOf(const Story& story, pugi::xml_node element, const Item* inside) {
    const Item* first = inside;
    const Item* last = inside;
    for (const Item* item = ItemTree::previous(inside); item && isInside(item->node, element);
         item = ItemTree::previous(item)) {
        first = item;
    }
    for (const Item* item = ItemTree::next(inside); item && isInside(item->node, element);
         item = ItemTree::next(item)) {
        last = item;
    }
    return {story.positionOf(first), story.positionOf(last) + CharacterCount{last->length}};
}

CharacterPosition startOf(const BookmarkRecord& record) {
    return record.story->positionOf(record.start);
}

CharacterPosition endOf(const BookmarkRecord& record) {
    return record.story->positionOf(record.end);
}

Story::Story(opc::XmlPart& part, const opc::WordNames& names, pugi::xml_node root, std::string name,
             BookmarkTable& bookmarks)
    : part_(part), names_(names), root_(root), name_(std::move(name)) {
    read(bookmarks);
}

bool Story::isPlaced() const {
    return isInside(root_, part_.root());
}

Item* Story::makeItem(ItemKind kind, pugi::xml_node node, CharacterCount length) {
    if (kind == ItemKind::RowMark) hasTables_ = true;
    Item& item = pool_.emplace_back();
    item.kind = kind;
    item.node = node;
    item.length = static_cast<std::uint32_t>(length.value);
    return &item;
}

std::size_t Story::expectedXmlSize() const {
    constexpr std::size_t kBytesAnItem = 36;  // of tags and attributes in a form of labelled fields
    return static_cast<std::size_t>(length().value) + pool_.size() * kBytesAnItem;
}

void Story::check(CharacterPosition start, CharacterPosition end) const {
    const bool within = start.value >= 0 && start <= end && end.value <= length().value;
    if (!within) refuseRange(start, end, " lies outside the text.");
    const bool splits = splitsCharacter(start) || (end != start && splitsCharacter(end));
    if (splits) refuseRange(start, end, " begins or ends inside a character.");
}

bool Story::splitsCharacter(CharacterPosition position) const {
    const Item* item = items_.itemAt(position);
    if (!item || (item->kind != ItemKind::Text && item->kind != ItemKind::FieldCode)) return false;
    const CharacterCount before = position - positionOf(item);
    if (before.value == 0) return false;
    const std::string_view text = item->node.child_value();
    return utf16Length(text.substr(0, byteOffset(text, before))) != before;
}

Item* Story::firstItemAt(CharacterPosition position) const {
    Item* item = items_.itemAt(position);
    if (!item) {
        item = items_.last();
        if (!item || item->takesPlace()) return nullptr;
    } else if (positionOf(item) != position) {
        return item;
    }
    for (Item* before = ItemTree::previous(item); before && !before->takesPlace();) {
        item = before;
        before = ItemTree::previous(before);
    }
    return item;
}

std::string Story::text(CharacterPosition start, CharacterPosition end) const {
    std::string result;
    CharacterPosition position = start;
    for (const Item* item = items_.itemAt(start); item && position < end; item = ItemTree::next(item)) {
        if (!item->takesPlace()) continue;
        const CharacterPosition itemStart = positionOf(item);
        const std::int64_t from = std::max<std::int64_t>(0, start.value - itemStart.value);
        const std::int64_t to = std::min<std::int64_t>(item->length, end.value - itemStart.value);
        const std::string whole = textOf(*this, item);
        result += item->kind == ItemKind::Text ? slice(whole, from, to) : whole;
        position = itemStart + CharacterCount{item->length};
    }
    return result;
}

std::string Story::code(CharacterPosition start, CharacterPosition end) const {
    std::string result;
    // For each open field that is nested in the code, whether its code has not ended.
    std::vector<bool> nestedInCode;
    for (const Item* item = items_.itemAt(start); item; item = ItemTree::next(item)) {
        if (item->takesPlace() && positionOf(item) >= end) break;
        if (item->kind == ItemKind::FieldBegin && names_.tagOf(item->node) == opc::WordTag::SimpleField) {
            if (positionOf(item) <= start) return names_.value(item->node, "instr");
            nestedInCode.push_back(false);
        } else if (item->kind == ItemKind::FieldBegin) {
            nestedInCode.push_back(true);
        } else if (item->kind == ItemKind::FieldSeparator && !nestedInCode.empty()) {
            nestedInCode.back() = false;
        } else if (item->kind == ItemKind::FieldEnd && !nestedInCode.empty()) {
            nestedInCode.pop_back();
        } else if (nestedInCode.empty() && item->kind == ItemKind::FieldCode) {
            result += item->node.child_value();
        } else if (nestedInCode.empty() || !nestedInCode.back()) {
            result += textOf(*this, item);
        }
    }
    return result;
}

pugi::xml_node Story::paragraphOf(const Item* item) const {
    if (item->kind == ItemKind::ParagraphMark) return item->node;
    if (item->kind == ItemKind::RowMark) return {};
    return names_.ancestor(item->node, opc::WordTag::Paragraph);
}

pugi::xml_node Story::innermost(opc::WordTag tag, const Item* item) const {
    for (pugi::xml_node node = item->node; node && node != root_; node = node.parent()) {
        if (names_.tagOf(node) == tag) return node;
    }
    return {};
}

pugi::xml_node Story::cellOf(const Item* item) const {
    if (!hasTables_) return {};
    return innermost(opc::WordTag::CellElement, item);
}

pugi::xml_node Story::tableOf(const Item* item) const {
    if (!hasTables_) return {};
    return innermost(opc::WordTag::Table, item);
}

pugi::xml_node Story::outermostTableOf(const Item* item, pugi::xml_node within) const {
    pugi::xml_node found;
    if (!hasTables_) return found;
    for (pugi::xml_node node = item->node; node && node != within && node != root_; node = node.parent()) {
        if (names_.tagOf(node) == opc::WordTag::Table) found = node;
    }
    return found;
}

bool Story::endsCell(const Item* paragraphMark) const {
    const pugi::xml_node cell = cellOf(paragraphMark);
    if (!cell) return false;
    const Item* next = ItemTree::nextInText(paragraphMark);
    return !next || !isInside(next->node, cell);
}

void Story::shift(CharacterPosition position, CharacterCount removed, CharacterCount inserted) {
    const CharacterPosition removedEnd = position + removed;
    const auto shifted = [&](CharacterPosition place) {
        if (place <= position) return place;
        if (place < removedEnd) return position;
        return place - removed + inserted;
    };
    for (TrackedRange* range : trackedRanges_)
        range->set(shifted(range->start_), shifted(range->end_));
}

void Story::clampTrackedRanges() {
    const CharacterPosition last{length().value};
    for (TrackedRange* range : trackedRanges_)
        range->set(std::min(range->start_, last), std::min(range->end_, last));
}

}  // namespace mergeloom::embedded
