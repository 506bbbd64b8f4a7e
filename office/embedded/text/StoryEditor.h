#pragma once

#include "office/embedded/text/DomPlace.h"
#include "office/embedded/text/EditJournal.h"
#include "office/embedded/text/Story.h"
#include "office/embedded/text/WordElementFactory.h"

#include <optional>
#include <string>
#include <string_view>

namespace mergeloom::embedded {

/// The run properties of new text. An empty node: without run properties; no value: those at the place.
using Formatting = std::optional<pugi::xml_node>;

/// The setting that new text gets.
struct TextSetting {
    Formatting formatting{};
    /// An element of the paragraph, such as a hyperlink, into which the text is inserted if it is at the
    /// place; it may be empty. None: the text is inserted outside of the elements that begin or end at the
    /// place.
    pugi::xml_node container{};
};

/// Inserts text and elements into a story. They are inserted after every mark at a place, so they become part
/// of a bookmark that starts there and not of one that ends there.
class StoryEditor {
  public:
    StoryEditor(Story& story, WordElementFactory& elementFactory, EditJournal& journal)
        : story_(story), elementFactory_(elementFactory), journal_(journal), places_(story) {}

    /// Inserts text in the given formatting, or in that of the place. In a field's code it becomes code.
    /// CR, LF or both together end a paragraph; a tab, a vertical tab (line break) and a form feed (page
    /// break) become their elements; other control characters are left out. Returns how many characters were
    /// inserted.
    CharacterCount insertText(CharacterPosition position, const std::string& text, TextSetting setting = {});
    void insertParagraphMark(CharacterPosition position);
    /// Returns true if the story's last item is the mark of a paragraph that is outside of any content
    /// control or the like.
    [[nodiscard]] bool endsWithOwnParagraph() const;
    /// Appends an empty paragraph to the story.
    void appendParagraph();
    /// Inserts a run, created among the detached nodes, whose child counts as one character.
    void insertObject(CharacterPosition position, pugi::xml_node run, pugi::xml_node child);

    /// Returns the formatting of text that is typed at a place; no value inside a run's text, which it would
    /// join.
    [[nodiscard]] Formatting formattingAtPlace(CharacterPosition position) const;

    /// Splits the run at the position, if there is text.
    void splitRun(CharacterPosition position);
    /// Raises an AutomationError when splitRun is not possible: in the code of a field, in a character.
    void checkSplit(CharacterPosition position) const;

  private:
    void insertPlain(CharacterPosition position, std::string_view text, CharacterCount length,
                     const TextSetting& setting);
    void insertBreak(CharacterPosition position, char character, const TextSetting& setting);
    void insertIntoItem(Item* item, CharacterPosition position, std::string_view text, CharacterCount length);
    bool appendToPrevious(Item* previous, CharacterPosition position, std::string_view text,
                          CharacterCount length);
    void insertRun(CharacterPosition position, pugi::xml_node run, Item* item, pugi::xml_node container);
    pugi::xml_node addCodeRun(const DomPlace& place, std::string_view text);
    Item* itemAfter(CharacterPosition position) const;

    [[nodiscard]] pugi::xml_node formattingAt(const Item* previous, const Item* next) const;
    pugi::xml_node makeRun(pugi::xml_node formatting);
    /// Gives a new run the properties of others, or none.
    void format(pugi::xml_node run, pugi::xml_node formatting);
    void splitText(Item* item, CharacterCount before);
    pugi::xml_node splitRunAfter(pugi::xml_node run, pugi::xml_node child);
    DomPlace splitContainers(DomPlace place, pugi::xml_node paragraph);
    /// Adds an empty paragraph with the same properties after a paragraph.
    pugi::xml_node addParagraphLike(pugi::xml_node paragraph);

    Story& story_;
    WordElementFactory& elementFactory_;
    EditJournal& journal_;
    DomPlaces places_;
};

}  // namespace mergeloom::embedded
