#pragma once

#include "office/embedded/text/BookmarkTable.h"
#include "office/embedded/text/DomPlace.h"
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

    /// Inserts a new, detached element at a place of the story and its item before another one. The
    /// item's node is the element itself or a child of it.
    void insert(Story& story, pugi::xml_node element, const DomPlace& place, Item* next, Item* item);
    /// Inserts only the item, for an element that was created at its place.
    void insertItemOf(Story& story, pugi::xml_node element, Item* next, Item* item);
    /// Records a node that was created at its place.
    void noteAdded(opc::XmlPart& part, pugi::xml_node node);
    /// Moves a node of the part after a sibling, or to the first place when `after` is none.
    void move(opc::XmlPart& part, pugi::xml_node node, pugi::xml_node parent, pugi::xml_node after);
    /// Moves a node of the part to its detached nodes.
    void remove(opc::XmlPart& part, pugi::xml_node node);
    /// Sets the text of a text element.
    void setText(opc::XmlPart& part, pugi::xml_node textElement, const std::string& value);
    void appendText(opc::XmlPart& part, pugi::xml_node textElement, const std::string& more);
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
        ElementInserted,
        ChildInserted,
        NodeAdded,
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
    /// large form records several steps for each of its controls. The number is a length or an index in one
    /// of the queues of former states.
    struct Entry {
        Step step;
        std::uint32_t number = 0;
        void* first = nullptr;
        void* second = nullptr;
    };

    void record(const Entry& entry);
    /// Keeps a former state for the step that is about to be recorded and returns its number.
    template <typename State>
    std::uint32_t keep(std::deque<State>& states, State state);
    void touch(opc::XmlPart& part);
    void clear();
    void revert(const Entry& entry);
    static void revertInsertion(Story& story, pugi::xml_node element, Item* item);

    // Queues, which grow without moving their elements: a large drop records much.
    std::deque<Entry> entries_;
    std::deque<std::string> oldTexts_;
    std::deque<DomPlace> oldPlaces_;
    std::deque<Item*> oldNexts_;  ///< the items before which removed ones were
    bool recording_ = false;
};

/// Moves a node without recording it, for nodes that a journal is about to take over.
void moveNode(pugi::xml_node node, pugi::xml_node parent, pugi::xml_node after);

}  // namespace mergeloom::embedded
