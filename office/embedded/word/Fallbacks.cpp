#include "office/embedded/word/Fallbacks.h"

#include <algorithm>
#include <vector>

namespace mergeloom::embedded {

namespace {

using Nodes = std::vector<pugi::xml_node>;

Nodes textBoxesOf(const opc::WordNames& names, pugi::xml_node branch) {
    Nodes found;
    collectTextBoxes(names, branch, found);
    return found;
}

/// Returns the other branches beside a branch.
Nodes branchesBeside(pugi::xml_node branch) {
    Nodes found;
    for (const pugi::xml_node sibling : branch.parent().children()) {
        if (sibling.type() == pugi::node_element && sibling != branch) found.push_back(sibling);
    }
    return found;
}

void removeBookmarks(const opc::WordNames& names, pugi::xml_node node) {
    for (pugi::xml_node child = node.first_child(); child;) {
        const pugi::xml_node next = child.next_sibling();
        const opc::WordTag tag = names.tagOf(child);
        if (tag == opc::WordTag::BookmarkStart || tag == opc::WordTag::BookmarkEnd) {
            node.remove_child(child);
        } else {
            removeBookmarks(names, child);
        }
        child = next;
    }
}

void replaceContent(const opc::XmlPart& part, const opc::WordNames& names, pugi::xml_node from,
                    pugi::xml_node to) {
    while (const pugi::xml_node old = to.first_child())
        part.detach(old);
    for (const pugi::xml_node child : from.children())
        to.append_copy(child);
    removeBookmarks(names, to);
}

void updateBeside(const Story& story, pugi::xml_node textBox) {
    const opc::WordNames& names = story.names();
    const pugi::xml_node choice = names.ancestor(textBox, opc::WordTag::Choice);
    if (!choice) return;
    const Nodes boxes = textBoxesOf(names, choice);
    const auto found = std::find(boxes.begin(), boxes.end(), textBox);
    if (found == boxes.end()) return;
    const auto number = static_cast<std::size_t>(found - boxes.begin());
    for (const pugi::xml_node branch : branchesBeside(choice)) {
        const Nodes copies = textBoxesOf(names, branch);
        if (copies.size() == boxes.size()) {
            replaceContent(story.part(), names, textBox, copies[number]);
        } else if (!copies.empty()) {
            story.part().detach(branch);  // its text boxes are others
        }
    }
}

}  // namespace

void Fallbacks::noteEdit(Story& story, CharacterPosition place) {
    const opc::WordNames& names = story.names();
    if (!story.hasAlternatives()) return;
    if (names.tagOf(story.root()) == opc::WordTag::TextBoxContent) editedTextBoxes_.insert(&story);
    const Item* item = story.items().itemAt(place);
    for (pugi::xml_node node = item ? item->node.parent() : pugi::xml_node(); node && node != story.root();
         node = node.parent()) {
        if (names.tagOf(node) != opc::WordTag::Choice) continue;
        for (const pugi::xml_node branch : branchesBeside(node))
            journal_.remove(story.part(), branch);
    }
}

void Fallbacks::update(const opc::XmlPart& part) {
    for (const Story* story : editedTextBoxes_) {
        if (&story->part() != &part) continue;
        // A text box around this one is repeated with all that is in it.
        for (pugi::xml_node textBox = story->root(); textBox;
             textBox = story->names().ancestor(textBox, opc::WordTag::TextBoxContent)) {
            updateBeside(*story, textBox);
        }
    }
}

}  // namespace mergeloom::embedded
