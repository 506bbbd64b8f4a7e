#include "office/embedded/word/EditPermission.h"

#include "base/AutomationError.h"
#include "office/embedded/text/DomPlace.h"
#include "office/embedded/word/TextArea.h"

#include <string>
#include <string_view>

namespace mergeloom::embedded {

namespace {

pugi::xml_node propertiesOf(const opc::WordNames& names, pugi::xml_node control) {
    return control.child(names.element("sdtPr").c_str());
}

/// Returns true if the content of a control is locked (ECMA-376 Part 1, 17.5.2.23). The other lock,
/// "sdtLocked", only prevents that the control is deleted.
bool isContentLocked(const opc::WordNames& names, pugi::xml_node control) {
    const pugi::xml_node lock = propertiesOf(names, control).child(names.element("lock").c_str());
    const std::string_view value = names.value(lock, "val");
    return value == "contentLocked" || value == "sdtContentLocked";
}

/// Returns true if a control is a group (ECMA-376 Part 1, 17.5.2.16), which protects its content except for
/// the controls inside.
bool isGroup(const opc::WordNames& names, pugi::xml_node control) {
    return static_cast<bool>(propertiesOf(names, control).child(names.element("group").c_str()));
}

/// Returns the control that locks the content of an element; none if it is not locked.
pugi::xml_node lockedControlAround(const opc::WordNames& names, pugi::xml_node element) {
    bool isInControl = false;
    for (pugi::xml_node node = element; node; node = node.parent()) {
        if (names.tagOf(node) != opc::WordTag::ContentControl) continue;
        if (isContentLocked(names, node)) return node;
        if (!isInControl && isGroup(names, node)) return node;
        isInControl = true;
    }
    return {};
}

std::string titleOf(const opc::WordNames& names, pugi::xml_node control) {
    for (const char* title : {"alias", "tag"}) {
        const pugi::xml_node named = propertiesOf(names, control).child(names.element(title).c_str());
        const std::string value = names.value(named, "val");
        if (!value.empty()) return "content control '" + value + "'";
    }
    return "content control at this place";
}

void checkInside(const Story& story, pugi::xml_node element) {
    const opc::WordNames& names = story.names();
    const pugi::xml_node control = lockedControlAround(names, element);
    if (!control) return;
    throw AutomationError(kNotAvailable,
                          "The " + titleOf(names, control) +
                              " is locked: its content cannot be changed. Take the lock off in the "
                              "control's properties first.");
}

const Item* itemBefore(const Item* item) {
    return item ? ItemTree::previous(item) : nullptr;
}

/// Returns the element into which text or a mark at a position is inserted; none after the story's end.
pugi::xml_node elementAt(const Story& story, CharacterPosition position) {
    const Item* next = story.items().itemAt(position);
    if (!next) return {};
    // The edit itself refuses a place where no text is possible.
    if (story.positionOf(next) != position || !story.paragraphOf(next)) return next->node;
    return DomPlaces(story).forStartMark(itemBefore(next), next).parent;
}

/// Returns the element into which a mark after the last character of a range is inserted.
pugi::xml_node elementAfter(const Story& story, CharacterPosition end) {
    const Item* last = story.items().itemAt(end - CharacterCount{1});
    const Item* next = story.items().itemAt(end);
    const bool splits = next == last;
    return splits ? last->node : DomPlaces(story).forEndMark(last, ItemTree::next(last)).parent;
}

/// Returns true if a section of a form is open to editing (ECMA-376 Part 1, 17.6.6).
bool isOpenSection(const opc::WordNames& names, pugi::xml_node section) {
    const pugi::xml_node switched = section.child(names.element("formProt").c_str());
    return switched && opc::isOff(names.value(switched, "val"));
}

}  // namespace

void EditPermission::checkText(const Story& story, CharacterPosition start, CharacterPosition end) {
    checkDocument(story, start);
    if (!story.hasContentControls()) return;
    if (start == end) return checkInside(story, elementAt(story, start));
    for (const Item* item = story.items().itemAt(start); item; item = ItemTree::next(item)) {
        if (item->takesPlace() && story.positionOf(item) >= end) break;
        checkInside(story, item->node);
    }
}

void EditPermission::checkMarks(const Story& story, CharacterPosition start, CharacterPosition end) {
    checkDocument(story, start);
    if (!story.hasContentControls()) return;
    checkInside(story, elementAt(story, start));
    if (start < end) checkInside(story, elementAfter(story, end));
}

void EditPermission::checkDocument(const Story& story, CharacterPosition position) {
    if (protection() == opc::DocumentProtection::None) return;
    const bool isForm = protection() == opc::DocumentProtection::Forms;
    const Item* item = isForm ? story.items().itemAt(position) : nullptr;
    if (item && isOpenSection(story.names(), sectionPropertiesOf(story, item))) return;
    opc::refuseProtected(package_.fileName(), protection());
}

opc::DocumentProtection EditPermission::protection() {
    if (!protection_) protection_ = opc::readDocumentProtection(package_);
    return *protection_;
}

}  // namespace mergeloom::embedded
