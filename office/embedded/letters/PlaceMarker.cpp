#include "office/embedded/letters/PlaceMarker.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "office/embedded/letters/FilledLetter.h"
#include "office/embedded/letters/Token.h"
#include "office/embedded/word/TextArea.h"

#include <algorithm>
#include <map>
#include <optional>
#include <string_view>

namespace mergeloom::embedded {

namespace {

/// The prefix of the bookmarks of an optional text, which a number follows, and the text.
struct OptionalText {
    std::string_view name;
    const char* text;
};
constexpr OptionalText kOptionalTexts[] = {{"OptionalSpace", " "}, {"OptionalCarriageReturn", "\r"}};

const OptionalText* optionalTextOf(std::string_view name) {
    for (const OptionalText& optional : kOptionalTexts) {
        if (!name.starts_with(optional.name)) continue;
        const std::string_view number = name.substr(optional.name.size());
        const bool isNumber = !number.empty() && number.size() <= 2 && std::ranges::all_of(number, isDigit);
        if (isNumber) return &optional;
    }
    return nullptr;
}

/// Returns true if a bookmark marks a table, and not text in a cell.
bool coversTable(const BookmarkRecord& record) {
    const Story& story = *record.story;
    const CharacterPosition start = startOf(record);
    const CharacterPosition end = endOf(record);
    if (start == end) return false;
    const Item* const first = story.items().itemAt(start);
    const Item* const last = story.items().itemAt(end - CharacterCount{1});
    const pugi::xml_node table = story.tableOf(first);
    if (!table || !last) return false;
    return last->kind == ItemKind::RowMark || story.cellOf(first) != story.cellOf(last) ||
           !isInside(last->node, table);
}

bool isPicture(const BookmarkRecord& record) {
    const CharacterPosition start = startOf(record);
    if (endOf(record) != start + CharacterCount{1}) return false;
    return record.story->items().itemAt(start)->kind == ItemKind::InlineObject;
}

/// Restores the id of a bookmark, so that filling a filled letter writes the same bytes.
void setId(const BookmarkRecord& record, const std::string& id) {
    const std::string attribute = record.story->names().attribute("id");
    for (const Item* mark : {record.start, record.end})
        pugi::xml_node(mark->node).attribute(attribute.c_str()).set_value(id.c_str());
}

class PlaceMarker {
  public:
    PlaceMarker(WordContent& content, const letters::PlaceSources& sources)
        : content_(content), sources_(sources) {}

    MarkedPlaces mark() {
        // A copy, since each replacement changes the table of bookmarks.
        std::vector<std::string> names;
        for (const BookmarkRecord* record : content_.bookmarks().withHidden())
            names.push_back(record->name);
        for (const std::string& name : names) {
            BookmarkRecord* const record = content_.bookmarks().find(name);
            // It may have been removed with another place around it.
            if (record != nullptr) mark(*record);
        }
        return std::move(marked_);
    }

  private:
    void mark(BookmarkRecord& record) {
        const std::string folded = foldCase(record.name);
        const auto table = sources_.tables.find(folded);
        const auto place = sources_.places.find(folded);
        const bool isTable =
            table != sources_.tables.end() && (place == sources_.places.end() || coversTable(record));
        if (isTable) {
            marked_.tables.push_back({record.name, table->second});
        } else if (place != sources_.places.end()) {
            markPlace(record, place->second);
        } else if (const OptionalText* optional = optionalTextOf(record.name)) {
            markOptional(record, *optional);
        }
    }

    void markPlace(BookmarkRecord& record, const letters::PlaceSource& source) {
        MarkedPlace place{record.name, source, isPicture(record), widthAt(record)};
        const Token token{TokenKind::Value, marked_.places.size()};
        if (place.isPicture || replace(record, token.text())) marked_.places.push_back(std::move(place));
    }

    /// Returns the width of the text around a place. Outside of tables it is the same in all of a story with
    /// one section, which is not searched for each place.
    Emu widthAt(const BookmarkRecord& record) {
        const Story& story = *record.story;
        if (story.cellOf(record.start) || hasSeveralSections(story))
            return textAreaWidth(story, startOf(record));
        const auto [width, isNew] = widths_.try_emplace(&story);
        if (isNew) width->second = textAreaWidth(story, startOf(record));
        return width->second;
    }

    bool hasSeveralSections(const Story& story) {
        const auto [several, isNew] = hasSeveralSections_.try_emplace(&story);
        if (isNew) {
            several->second = static_cast<bool>(story.root().find_node([&](pugi::xml_node node) {
                return story.names().tagOf(node) == opc::WordTag::SectionProperties &&
                       node.parent() != story.root();
            }));
        }
        return several->second;
    }

    void markOptional(BookmarkRecord& record, const OptionalText& optional) {
        // Its text may be absent in a filled letter.
        const std::string shown = record.story->text(startOf(record), endOf(record));
        const bool isGone = shown.empty() || shown == kKeptPlace;
        const std::string name = record.name;
        if (isGone && !replace(record, optional.text)) return;
        marked_.optionals.push_back(name);
    }

    /// Replaces the text of a bookmark and keeps the bookmark.
    bool replace(const BookmarkRecord& record, const std::string& text) {
        const std::string name = record.name;
        const std::string id = record.story->names().value(record.start->node, "id");
        Story& story = *record.story;
        const CharacterPosition start = startOf(record);
        try {
            const CharacterCount inserted = content_.replace(story, start, endOf(record), text, RunUse::Own);
            const BookmarkRecord& kept = content_.addBookmark(name, story, start, start + inserted);
            setId(kept, id);
            return true;
        } catch (const AutomationError& error) {
            marked_.refusals.push_back("The place \"" + name + "\" cannot be filled: " + error.description());
            return false;
        }
    }

    WordContent& content_;
    const letters::PlaceSources& sources_;
    MarkedPlaces marked_;
    std::map<const Story*, Emu> widths_;
    std::map<const Story*, bool> hasSeveralSections_;
};

}  // namespace

MarkedPlaces markPlaces(WordContent& content, const letters::PlaceSources& sources) {
    return PlaceMarker(content, sources).mark();
}

}  // namespace mergeloom::embedded
