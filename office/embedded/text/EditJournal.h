#pragma once

#include "office/embedded/text/BookmarkTable.h"
#include "office/embedded/text/ItemTree.h"
#include "office/opc/XmlPart.h"

#include <cstdint>
#include <deque>
#include <pugixml.hpp>
#include <string>

namespace mergeloom::embedded {

/// Makes every change to a document's trees, so that it can be undone: while the journal records, it keeps
/// the inverse of each primitive step, and undo replays them from the last to the first.
class EditJournal {
  public:
    /// Forgets the recorded steps and records from now on.
    void start();
    void stop() { recording_ = false; }
    [[nodiscard]] bool isEmpty() const { return entries_.empty(); }
    /// Undoes all recorded steps, after which the journal is empty.
    void undo();

    /// Moves a node of the part after a sibling, or to the first place when `after` is none.
    void move(opc::XmlPart& part, pugi::xml_node node, pugi::xml_node parent, pugi::xml_node after);
    /// Moves a node out of the part into the attic.
    void remove(opc::XmlPart& part, pugi::xml_node node);
    /// Sets the value of a text node.
    void setText(opc::XmlPart& part, pugi::xml_node text, const std::string& value);
    void appendText(opc::XmlPart& part, pugi::xml_node text, const std::string& more);
    /// Marks a text element as one whose blanks at the beginning and the end count.
    void keepBlanks(pugi::xml_node textElement);

    void insertItem(ItemTree& tree, Item* next, Item* item);
    void removeItem(ItemTree& tree, Item* item);
    void setLength(ItemTree& tree, Item* item, CharacterCount length);
    void setNode(Item* item, pugi::xml_node node);

    void listBookmark(BookmarkTable& table, BookmarkRecord& record);
    void unlistBookmark(BookmarkTable& table, BookmarkRecord& record);

  private:
    enum class Step : std::uint8_t {
        PartTouched,
        NodeMoved,
        TextSet,
        TextAppended,
        BlanksKept,
        ItemInserted,
        ItemRemoved,
        LengthSet,
        NodeSet,
        BookmarkListed,
        BookmarkUnlisted,
    };

    /// The data that undoes a step; the kind of step decides which fields it uses. Kept small: a drop of a
    /// large form records a dozen steps for each of its controls.
    struct Entry {
        Step step;
        std::uint32_t number = 0;
        void* first = nullptr;
        void* second = nullptr;
        void* third = nullptr;
    };

    void record(const Entry& entry);
    void touch(opc::XmlPart& part);
    void takeBack(const Entry& entry);

    // Queues, which grow without moving their elements: a large drop records much.
    std::deque<Entry> entries_;
    std::deque<std::string> oldTexts_;
    bool recording_ = false;
};

/// Moves a node without recording it, for nodes that a journal is about to take over.
void moveNode(pugi::xml_node node, pugi::xml_node parent, pugi::xml_node after);

}  // namespace mergeloom::embedded
