#include "app/TemplateCheck.h"
#include "base/Text.h"
#include "droppers/CellNavigation.h"
#include "droppers/FurtherPlaceNames.h"
#include "droppers/SelectionCheck.h"
#include "droppers/SpecialPlaces.h"
#include "droppers/modWordNormalizeName.h"
#include "office/model/excel/Names.h"
#include "office/model/excel/Range.h"
#include "office/model/word/Bookmarks.h"
#include "office/model/word/Range.h"

#include <cstddef>

namespace mergeloom {

namespace {

using Kind = TemplatePlace::Kind;

/// Returns true if a text is the end of a name, as the text of a place is: the name of its control.
bool showsName(const std::string& name, const std::string& text) {
    const std::string shown = foldCase(WordNormalizeName(text, false));
    return !shown.empty() && foldCase(withoutPlaceCounter(name)).ends_with(shown);
}

Kind kindOf(const std::string& name, word::Range& range) {
    if (name.starts_with('_')) return Kind::Other;
    if (isSpecialPlaceName(name)) return Kind::Optional;
    if (coversSeveralCells(range)) return Kind::Table;
    return showsName(name, range.Text()) ? Kind::Place : Kind::Other;
}

/// A bookmark and the text that it covers.
struct MarkedText {
    std::string name;
    std::string story;
    CharacterPosition start;
    CharacterPosition end;
    CharacterCount guard{};  ///< the length of the guard before it, which keeps it from the place before

    [[nodiscard]] bool precedes(const MarkedText& next) const {
        return story == next.story && (end == next.start || end + next.guard == next.start);
    }
};

MarkedText markedText(const std::string& name, word::Range& range) {
    MarkedText text{name, range.storyName(), range.Start(), range.End()};
    const word::RangePtr before = range.Previous(word::WdUnits::wdCharacter, 1);
    if (before && before->Text() == ZeroWidthJoiner()) text.guard = CharacterCount{1};
    return text;
}

void findNeighbours(std::vector<TemplatePlace>& places, const std::vector<MarkedText>& texts) {
    for (std::size_t number = 0; number < places.size(); ++number) {
        if (places[number].kind != Kind::Optional) continue;
        for (std::size_t other = 0; other < places.size(); ++other) {
            const bool isBeside = other != number && (texts[other].precedes(texts[number]) ||
                                                      texts[number].precedes(texts[other]));
            if (isBeside) places[number].beside.push_back(texts[other].name);
        }
    }
}

}  // namespace

std::vector<TemplatePlace> templatePlacesOf(word::Document& document) {
    const word::BookmarksPtr bookmarks = document.Bookmarks();
    std::vector<TemplatePlace> places;
    std::vector<MarkedText> texts;
    for (int number = 1; number <= bookmarks->Count(); ++number) {
        const word::BookmarkPtr bookmark = bookmarks->Item(number);
        const std::string name = bookmark->Name();
        const word::RangePtr range = bookmark->Range();
        places.push_back({name, kindOf(name, *range)});
        texts.push_back(markedText(name, *range));
    }
    findNeighbours(places, texts);
    return places;
}

std::vector<TemplatePlace> templatePlacesOf(excel::Workbook& workbook) {
    const excel::NamesPtr names = workbook.Names();
    std::vector<TemplatePlace> places;
    for (int number = 1; number <= names->Count(); ++number) {
        const excel::DefinedNamePtr name = names->Item(number);
        const bool isOurs = name->Visible() && foldCase(name->Name()).starts_with(kRangeNamePrefix);
        const excel::RangePtr cells = rangeOrNone([&] { return name->RefersToRange(); });
        const bool isTable = cells && cells->Rows()->Count() > 1 && cells->Columns()->Count() > 1;
        places.push_back({name->Name(), !isOurs ? Kind::Other : isTable ? Kind::Table : Kind::Place});
    }
    return places;
}

}  // namespace mergeloom
