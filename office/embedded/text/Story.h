#pragma once

#include "base/Units.h"
#include "office/embedded/text/BookmarkTable.h"
#include "office/embedded/text/ItemTree.h"
#include "office/opc/WordNames.h"
#include "office/opc/XmlPart.h"

#include <cstddef>
#include <deque>
#include <pugixml.hpp>
#include <string>
#include <vector>

namespace mergeloom::embedded {

class Story;

/// A range of a story that follows edits: the story moves the ends of every tracked range when text is
/// inserted or removed. Ranges and the selection are based on it.
class TrackedRange {
  public:
    TrackedRange(Story& story, CharacterPosition start, CharacterPosition end);
    TrackedRange(const TrackedRange&) = delete;
    TrackedRange& operator=(const TrackedRange&) = delete;
    ~TrackedRange();

    [[nodiscard]] Story& story() const { return *story_; }
    [[nodiscard]] CharacterPosition start() const { return start_; }
    [[nodiscard]] CharacterPosition end() const { return end_; }

    void set(CharacterPosition start, CharacterPosition end);
    void moveTo(Story& story, CharacterPosition start, CharacterPosition end);

  private:
    friend class Story;

    Story* story_;
    CharacterPosition start_;
    CharacterPosition end_;
};

/// An element of the body, a header, a footer, a note, a comment or a text box that contains paragraphs, as
/// one row of characters. It is only read here; StoryEditor changes it.
class Story {
  public:
    /// Reads the items below root, an element of the part, and lists the bookmarks that start and end there.
    /// The name is shown to users: "body".
    Story(opc::XmlPart& part, const opc::WordNames& names, pugi::xml_node root, std::string name,
          BookmarkTable& bookmarks);
    Story(const Story&) = delete;
    Story& operator=(const Story&) = delete;

    [[nodiscard]] const std::string& name() const { return name_; }
    [[nodiscard]] opc::XmlPart& part() const { return part_; }
    [[nodiscard]] const opc::WordNames& names() const { return names_; }
    [[nodiscard]] pugi::xml_node root() const { return root_; }
    /// Returns true if the story is in its part; that of a text box is removed with the text around the box.
    [[nodiscard]] bool isPlaced() const;
    [[nodiscard]] ItemTree& items() { return items_; }
    [[nodiscard]] const ItemTree& items() const { return items_; }

    /// Makes an item that is in no tree yet; it lives as long as the story.
    Item* makeItem(ItemKind kind, pugi::xml_node node, CharacterCount length);

    [[nodiscard]] CharacterCount length() const { return items_.length(); }
    /// Returns an estimate of the story's size in its part, in bytes.
    [[nodiscard]] std::size_t expectedXmlSize() const;
    /// Raises an AutomationError for a position outside the story or between the halves of a character that
    /// takes two units.
    void check(CharacterPosition start, CharacterPosition end) const;

    /// Returns the position before an item.
    [[nodiscard]] CharacterPosition positionOf(const Item* item) const { return items_.positionOf(item); }
    /// Returns the first item at a position: the one after it and before every mark there.
    [[nodiscard]] Item* firstItemAt(CharacterPosition position) const;

    /// Returns the text as a range reads it, without field codes and field characters.
    [[nodiscard]] std::string text(CharacterPosition start, CharacterPosition end) const;

    /// Returns the code of a field that is between the positions; a nested field counts with its result.
    [[nodiscard]] std::string code(CharacterPosition start, CharacterPosition end) const;

    /// Returns the element of the paragraph that an item is in or ends; none for marks between paragraphs.
    [[nodiscard]] pugi::xml_node paragraphOf(const Item* item) const;
    /// Return the innermost cell or table around an item; none outside of tables. A row mark is in its table
    /// but in none of that table's cells.
    [[nodiscard]] pugi::xml_node cellOf(const Item* item) const;
    [[nodiscard]] pugi::xml_node tableOf(const Item* item) const;
    /// Returns the outermost table around an item and within an element, by default the whole story; none
    /// outside of tables.
    [[nodiscard]] pugi::xml_node outermostTableOf(const Item* item, pugi::xml_node within = {}) const;
    /// Returns true if a paragraph mark ends a cell.
    [[nodiscard]] bool endsCell(const Item* paragraphMark) const;

    /// Returns true if the story may contain a table.
    [[nodiscard]] bool hasTables() const { return hasTables_; }
    /// Returns true if any of the text may be inside a content control.
    [[nodiscard]] bool hasContentControls() const { return hasContentControls_; }

    /// Returns true if the story or the elements around it may have alternative branches (ECMA-376 Part 3,
    /// 10.2).
    [[nodiscard]] bool hasAlternatives() const { return hasAlternatives_; }

    /// Updates the tracked ranges after a change at a position, where `removed` characters were removed and
    /// `inserted` inserted. Text that is inserted at an end of a range leaves that end at its position.
    void shift(CharacterPosition position, CharacterCount removed, CharacterCount inserted);

    /// Moves the ends of tracked ranges that are after the story's end back to it, after edits were undone.
    void clampTrackedRanges();

    /// Returns the elements of text boxes in this story, in order; each is a story of its own.
    [[nodiscard]] const std::vector<pugi::xml_node>& textBoxes() const { return textBoxes_; }

  private:
    friend class TrackedRange;
    friend class StoryReader;

    /// Reads the elements below the root into items.
    void read(BookmarkTable& bookmarks);
    [[nodiscard]] bool splitsCharacter(CharacterPosition position) const;
    void add(TrackedRange& range) { trackedRanges_.push_back(&range); }
    void remove(TrackedRange& range) { std::erase(trackedRanges_, &range); }
    [[nodiscard]] pugi::xml_node innermost(opc::WordTag tag, const Item* item) const;

    opc::XmlPart& part_;
    const opc::WordNames& names_;
    pugi::xml_node root_;
    std::string name_;
    std::deque<Item> pool_;
    ItemTree items_;
    std::vector<TrackedRange*> trackedRanges_;
    std::vector<pugi::xml_node> textBoxes_;
    bool hasContentControls_ = false;
    bool hasAlternatives_ = false;
    bool hasTables_ = false;
};

/// Returns the text that an item contributes to a range's text.
std::string textOf(const Story& story, const Item* item);

/// The positions at which the items inside an element of the story begin and end.
struct CharacterRange {
    CharacterPosition start;
    CharacterPosition end;
};
CharacterRange characterRangeOf(const Story& story, pugi::xml_node element, const Item* inside);

/// Return the positions at which a bookmark starts and ends.
CharacterPosition startOf(const BookmarkRecord& record);
CharacterPosition endOf(const BookmarkRecord& record);

/// Adds the elements of text boxes below a node to a list, without those inside of them.
void collectTextBoxes(const opc::WordNames& names, pugi::xml_node node, std::vector<pugi::xml_node>& found);

/// Returns true if a node is the element or is below it.
bool isInside(pugi::xml_node node, pugi::xml_node element);

}  // namespace mergeloom::embedded
