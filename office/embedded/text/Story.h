#pragma once

#include "base/Units.h"
#include "office/embedded/text/BookmarkTable.h"
#include "office/embedded/text/ItemTree.h"
#include "office/opc/WordNames.h"
#include "office/opc/XmlPart.h"

#include <deque>
#include <pugixml.hpp>
#include <string>
#include <vector>

namespace mergeloom::embedded {

class TrackedRange;

/// An element of the body, a header, a footer, a note, a comment or a text box that holds paragraphs, seen as
/// one row of characters. Answers questions; edits are made by StoryEditor.
class Story {
  public:
    /// Reads the items below root, an element of the part, and lists the bookmarks that start and end there.
    /// The name tells the story to people: "body".
    Story(opc::XmlPart& part, const opc::WordNames& names, pugi::xml_node root, std::string name,
          BookmarkTable& bookmarks);
    Story(const Story&) = delete;
    Story& operator=(const Story&) = delete;

    [[nodiscard]] const std::string& name() const { return name_; }
    [[nodiscard]] opc::XmlPart& part() const { return part_; }
    [[nodiscard]] const opc::WordNames& names() const { return names_; }
    [[nodiscard]] pugi::xml_node root() const { return root_; }
    /// Whether the story is in its part; that of a text box goes with the text that the box stood in.
    [[nodiscard]] bool isPlaced() const;
    [[nodiscard]] ItemTree& items() { return items_; }
    [[nodiscard]] const ItemTree& items() const { return items_; }

    /// A new item that is in no tree yet; it lives as long as the story.
    Item* makeItem(ItemKind kind, pugi::xml_node node, CharacterCount length);

    [[nodiscard]] CharacterCount length() const { return items_.length(); }
    /// Raises an AutomationError for a position outside the story or between the halves of a character that
    /// takes two units.
    void check(CharacterPosition start, CharacterPosition end) const;

    /// The item behind a position and before every mark that stands at it: the first item at the position.
    [[nodiscard]] Item* firstItemAt(CharacterPosition position) const;

    /// The text as a range reads it: field codes and field characters are left out.
    [[nodiscard]] std::string text(CharacterPosition start, CharacterPosition end) const;

    /// The code of a field whose code stands between the positions; a nested field counts with its result.
    [[nodiscard]] std::string code(CharacterPosition start, CharacterPosition end) const;

    /// The element of the paragraph that an item stands in or ends; none for marks between paragraphs.
    [[nodiscard]] pugi::xml_node paragraphOf(const Item* item) const;
    /// The innermost cell or table around an item; none outside tables. A row mark stands in its table but
    /// in none of that table's cells.
    [[nodiscard]] pugi::xml_node cellOf(const Item* item) const;
    [[nodiscard]] pugi::xml_node tableOf(const Item* item) const;
    /// Whether a paragraph mark ends a cell.
    [[nodiscard]] bool endsCell(const Item* paragraphMark) const;

    /// The one routine that keeps live spans true: at position, removed characters went and inserted came.
    /// Text that comes in at an end of a span leaves that end where it is.
    void shift(CharacterPosition position, CharacterCount removed, CharacterCount inserted);

    /// Brings live spans that reach behind the story back to its end, after edits were taken back.
    void clampSpans();

    /// Elements of text boxes that stand in this story, in order; each is a story of its own.
    [[nodiscard]] const std::vector<pugi::xml_node>& textBoxes() const { return textBoxes_; }

  private:
    friend class TrackedRange;
    friend class StoryReader;

    [[nodiscard]] bool splitsCharacter(CharacterPosition position) const;
    void add(TrackedRange& span) { spans_.push_back(&span); }
    void remove(TrackedRange& span) { std::erase(spans_, &span); }

    opc::XmlPart& part_;
    const opc::WordNames& names_;
    pugi::xml_node root_;
    std::string name_;
    std::deque<Item> pool_;
    ItemTree items_;
    std::vector<TrackedRange*> spans_;
    std::vector<pugi::xml_node> textBoxes_;
};

/// The text that one item adds to what a range reads.
std::string textOf(const Story& story, const Item* item);

/// Where the items inside an element of the story begin and end, told from one of them.
struct CharacterRange {
    CharacterPosition start;
    CharacterPosition end;
};
CharacterRange characterRangeOf(pugi::xml_node element, const Item* inside);

/// Whether a node is the element or stands somewhere below it.
bool isInside(pugi::xml_node node, pugi::xml_node element);

}  // namespace mergeloom::embedded
