#include "office/embedded/text/EditJournal.h"

#include "office/embedded/text/WordElementFactory.h"

#include <utility>

namespace mergeloom::embedded {

namespace {

pugi::xml_node nodeOf(void* handle) {
    return pugi::xml_node(static_cast<pugi::xml_node_struct*>(handle));
}

void appendToText(pugi::xml_text text, const std::string& more) {
    text.set((text.get() + more).c_str());
}

}  // namespace

void moveNode(pugi::xml_node node, pugi::xml_node parent, pugi::xml_node after) {
    if (after) {
        parent.insert_move_after(node, after);
    } else {
        parent.prepend_move(node);
    }
}

void EditJournal::start() {
    clear();
    recording_ = true;
}

void EditJournal::undo() {
    recording_ = false;
    for (auto entry = entries_.rbegin(); entry != entries_.rend(); ++entry)
        revert(*entry);
    clear();
}

void EditJournal::clear() {
    entries_.clear();
    oldTexts_.clear();
    oldPlaces_.clear();
    oldNexts_.clear();
}

void EditJournal::insert(Story& story, pugi::xml_node element, const DomPlace& place, Item* next,
                         Item* item) {
    moveNode(element, place.parent, place.after);
    insertItemOf(story, element, next, item);
}

void EditJournal::insertItemOf(Story& story, pugi::xml_node element, Item* next, Item* item) {
    touch(story.part());
    record({element == item->node ? Step::ElementInserted : Step::ChildInserted, 0, &story, item});
    story.items().insertBefore(next, item);
}

void EditJournal::noteAdded(opc::XmlPart& part, pugi::xml_node node) {
    touch(part);
    record({Step::NodeAdded, 0, node.internal_object(), &part});
}

void EditJournal::move(opc::XmlPart& part, pugi::xml_node node, pugi::xml_node parent, pugi::xml_node after) {
    if (node.parent() == part.detachedNodes()) {
        noteAdded(part, node);
    } else {
        touch(part);
        const DomPlace place{node.parent(), node.previous_sibling()};
        record({Step::NodeMoved, keep(oldPlaces_, place), node.internal_object()});
    }
    moveNode(node, parent, after);
}

void EditJournal::remove(opc::XmlPart& part, pugi::xml_node node) {
    move(part, node, part.detachedNodes(), part.detachedNodes().last_child());
}

void EditJournal::setText(opc::XmlPart& part, pugi::xml_node textElement, const std::string& value) {
    touch(part);
    record({Step::TextSet, keep(oldTexts_, std::string(textElement.text().get())),
            textElement.internal_object()});
    textElement.text().set(value.c_str());
}

void EditJournal::appendText(opc::XmlPart& part, pugi::xml_node textElement, const std::string& more) {
    touch(part);
    record({Step::TextAppended, static_cast<std::uint32_t>(more.size()), textElement.internal_object()});
    appendToText(textElement.text(), more);
}

void EditJournal::keepBlanks(pugi::xml_node textElement) {
    if (embedded::keepBlanks(textElement)) record({Step::BlanksKept, 0, textElement.internal_object()});
}

void EditJournal::insertItem(ItemTree& tree, Item* next, Item* item) {
    record({Step::ItemInserted, 0, &tree, item});
    tree.insertBefore(next, item);
}

void EditJournal::removeItem(ItemTree& tree, Item* item) {
    record({Step::ItemRemoved, keep(oldNexts_, ItemTree::next(item)), &tree, item});
    tree.remove(item);
}

void EditJournal::setLength(ItemTree& tree, Item* item, CharacterCount length) {
    record({Step::LengthSet, item->length, &tree, item});
    tree.setLength(item, length);
}

void EditJournal::setNode(Item* item, pugi::xml_node node) {
    record({Step::NodeSet, 0, item, item->node.internal_object()});
    item->node = node;
}

void EditJournal::listBookmark(BookmarkTable& table, BookmarkRecord& bookmark) {
    record({Step::BookmarkListed, 0, &table, &bookmark});
    table.list(bookmark);
}

void EditJournal::unlistBookmark(BookmarkTable& table, BookmarkRecord& bookmark) {
    record({Step::BookmarkUnlisted, 0, &table, &bookmark});
    table.unlist(bookmark);
}

void EditJournal::record(const Entry& entry) {
    if (recording_) {
        entries_.push_back(entry);
    } else if (!entries_.empty()) {
        // After an edit that is not recorded, the recorded ones cannot be undone any more.
        clear();
    }
}

template <typename State>
std::uint32_t EditJournal::keep(std::deque<State>& states, State state) {
    const auto number = static_cast<std::uint32_t>(states.size());
    if (recording_) states.push_back(std::move(state));
    return number;
}

void EditJournal::touch(opc::XmlPart& part) {
    if (part.isDirty()) return;
    record({Step::PartTouched, 0, &part});
    part.setDirty(true);
}

void EditJournal::revert(const Entry& entry) {
    Item* item = static_cast<Item*>(entry.second);
    switch (entry.step) {
        case Step::PartTouched:
            static_cast<opc::XmlPart*>(entry.first)->setDirty(false);
            return;
        case Step::ElementInserted:
            return revertInsertion(*static_cast<Story*>(entry.first), item->node, item);
        case Step::ChildInserted:
            return revertInsertion(*static_cast<Story*>(entry.first), item->node.parent(), item);
        case Step::NodeAdded:
            return static_cast<opc::XmlPart*>(entry.second)->detach(nodeOf(entry.first));
        case Step::NodeMoved:
            return moveNode(nodeOf(entry.first), oldPlaces_[entry.number].parent,
                            oldPlaces_[entry.number].after);
        case Step::TextSet:
            nodeOf(entry.first).text().set(oldTexts_[entry.number].c_str());
            return;
        case Step::TextAppended: {
            std::string value = nodeOf(entry.first).text().get();
            value.resize(value.size() - entry.number);
            nodeOf(entry.first).text().set(value.c_str());
            return;
        }
        case Step::BlanksKept:
            nodeOf(entry.first).remove_attribute(kSpaceAttribute);
            return;
        case Step::ItemInserted:
            static_cast<ItemTree*>(entry.first)->remove(item);
            return;
        case Step::ItemRemoved:
            static_cast<ItemTree*>(entry.first)->insertBefore(oldNexts_[entry.number], item);
            return;
        case Step::LengthSet:
            static_cast<ItemTree*>(entry.first)->setLength(item, {entry.number});
            return;
        case Step::NodeSet:
            static_cast<Item*>(entry.first)->node = nodeOf(entry.second);
            return;
        case Step::BookmarkListed:
            static_cast<BookmarkTable*>(entry.first)->unlist(*static_cast<BookmarkRecord*>(entry.second));
            return;
        case Step::BookmarkUnlisted:
            static_cast<BookmarkTable*>(entry.first)->list(*static_cast<BookmarkRecord*>(entry.second));
            return;
    }
}

void EditJournal::revertInsertion(Story& story, pugi::xml_node element, Item* item) {
    story.part().detach(element);
    story.items().remove(item);
}

}  // namespace mergeloom::embedded
