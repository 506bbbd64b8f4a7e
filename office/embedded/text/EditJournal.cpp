#include "office/embedded/text/EditJournal.h"

#include "office/embedded/parts/WordElementFactory.h"

namespace mergeloom::embedded {

namespace {

pugi::xml_node nodeOf(void* handle) {
    return pugi::xml_node(static_cast<pugi::xml_node_struct*>(handle));
}

void appendToText(pugi::xml_node text, const std::string& more) {
    text.set_value((text.value() + more).c_str());
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
    entries_.clear();
    oldTexts_.clear();
    recording_ = true;
}

void EditJournal::undo() {
    recording_ = false;
    for (auto entry = entries_.rbegin(); entry != entries_.rend(); ++entry)
        takeBack(*entry);
    entries_.clear();
    oldTexts_.clear();
}

void EditJournal::move(opc::XmlPart& part, pugi::xml_node node, pugi::xml_node parent, pugi::xml_node after) {
    touch(part);
    record({Step::NodeMoved, 0, node.internal_object(), node.parent().internal_object(),
            node.previous_sibling().internal_object()});
    moveNode(node, parent, after);
}

void EditJournal::remove(opc::XmlPart& part, pugi::xml_node node) {
    move(part, node, part.attic(), part.attic().last_child());
}

void EditJournal::setText(opc::XmlPart& part, pugi::xml_node text, const std::string& value) {
    touch(part);
    if (recording_) {
        record({Step::TextSet, static_cast<std::uint32_t>(oldTexts_.size()), text.internal_object()});
        oldTexts_.emplace_back(text.value());
    }
    text.set_value(value.c_str());
}

void EditJournal::appendText(opc::XmlPart& part, pugi::xml_node text, const std::string& more) {
    touch(part);
    record({Step::TextAppended, static_cast<std::uint32_t>(more.size()), text.internal_object()});
    appendToText(text, more);
}

void EditJournal::keepBlanks(pugi::xml_node textElement) {
    if (embedded::keepBlanks(textElement)) record({Step::BlanksKept, 0, textElement.internal_object()});
}

void EditJournal::insertItem(ItemTree& tree, Item* next, Item* item) {
    record({Step::ItemInserted, 0, &tree, item});
    tree.insertBefore(next, item);
}

void EditJournal::removeItem(ItemTree& tree, Item* item) {
    record({Step::ItemRemoved, 0, &tree, item, ItemTree::next(item)});
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
    } else {
        // After an edit that is not recorded, the recorded ones cannot be undone any more.
        entries_.clear();
    }
}

void EditJournal::touch(opc::XmlPart& part) {
    if (part.isDirty()) return;
    record({Step::PartTouched, 0, &part});
    part.setDirty(true);
}

void EditJournal::takeBack(const Entry& entry) {
    Item* item = static_cast<Item*>(entry.second);
    switch (entry.step) {
        case Step::PartTouched:
            static_cast<opc::XmlPart*>(entry.first)->setDirty(false);
            return;
        case Step::NodeMoved:
            moveNode(nodeOf(entry.first), nodeOf(entry.second), nodeOf(entry.third));
            return;
        case Step::TextSet:
            nodeOf(entry.first).set_value(oldTexts_[entry.number].c_str());
            return;
        case Step::TextAppended: {
            std::string value = nodeOf(entry.first).value();
            value.resize(value.size() - entry.number);
            nodeOf(entry.first).set_value(value.c_str());
            return;
        }
        case Step::BlanksKept:
            nodeOf(entry.first).remove_attribute(kSpaceAttribute);
            return;
        case Step::ItemInserted:
            static_cast<ItemTree*>(entry.first)->remove(item);
            return;
        case Step::ItemRemoved:
            static_cast<ItemTree*>(entry.first)->insertBefore(static_cast<Item*>(entry.third), item);
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

}  // namespace mergeloom::embedded
