#include "office/libreoffice/word/ContentReader.h"

#include "office/libreoffice/session/UnoText.h"
#include "office/libreoffice/word/StoryNames.h"
#include "office/libreoffice/word/TextMeasure.h"

#include <algorithm>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/text/XTextTable.hpp>
#include <com/sun/star/text/XTextViewCursorSupplier.hpp>
#include <vector>

namespace mergeloom::libreoffice {

namespace {

std::string nameOf(const Reference<css::uno::XInterface>& object) {
    return fromUno(Reference<css::container::XNamed>(object, UNO_QUERY_THROW)->getName());
}

std::string cellName(const Reference<css::uno::XInterface>& cell) {
    OUString name;
    Reference<css::beans::XPropertySet>(cell, UNO_QUERY_THROW)->getPropertyValue("CellName") >>= name;
    return fromUno(name);
}

/// The object that a property of the range names, such as the table around it; none outside.
Reference<css::uno::XInterface> around(const Reference<css::text::XTextRange>& range, const char* property) {
    const Reference<css::beans::XPropertySet> properties(range, UNO_QUERY);
    Reference<css::uno::XInterface> found;
    if (properties.is()) properties->getPropertyValue(OUString::createFromAscii(property)) >>= found;
    return found;
}

std::vector<MappedCell> cellsOf(const Reference<css::text::XTextTable>& table) {
    std::vector<MappedCell> cells;
    for (const OUString& name : table->getCellNames()) {
        const TextReference text(table->getCellByName(name), UNO_QUERY_THROW);
        cells.push_back({fromUno(name), {stepsOf(text)}});
    }
    return cells;
}

Stretch wholeOf(const MappedTable& table) {
    return {table.start, table.end()};
}

}  // namespace

void ContentReader::readTables() {
    if (stories_.empty()) stories_.emplace_back("body", model_.text->getText(), model_.tables);
    for (WriterStory& story : stories_) {
        story.map().clear();
        story.map().setLength({stepsOf(story.text()) + 1});
    }
    std::vector<std::string> names;
    for (const OUString& name : model_.tables->getTextTables()->getElementNames())
        names.push_back(fromUno(name));
    // A table is placed once those around it are.
    for (std::size_t before = names.size() + 1; names.size() < before;) {
        before = names.size();
        std::erase_if(names, [this](const std::string& name) { return placeTable(name); });
    }
}

bool ContentReader::placeTable(const std::string& name) {
    const Reference<css::text::XTextTable> table(model_.tables->getTextTables()->getByName(toUno(name)),
                                                 UNO_QUERY_THROW);
    const auto found = std::make_shared<MappedTable>();
    found->name = name;
    found->rows = rowsOfCells(cellsOf(table));
    const RangeReference behind = placeBehind(table);
    const FoundText parent = behind.is() ? textOf(behind) : FoundText{};
    if (!parent.story) return false;
    // A table takes no step of a cursor, so what stands behind it says where it stands.
    const std::int64_t steps = stepsBefore(parent.story->textOf(parent.key), behind);
    StoryMap& map = parent.story->map();
    found->start = map.positionOf({parent.key, steps});
    map.insertTable(found);
    return true;
}

/// The view's cursor is the one that leaves a table. Behind the last cell there may be more that others
/// cover.
RangeReference ContentReader::placeBehind(const Reference<css::text::XTextTable>& table) {
    const Reference<css::text::XTextViewCursorSupplier> view(model_.model->getCurrentController(),
                                                             UNO_QUERY_THROW);
    const auto cursor = view->getViewCursor();
    const css::uno::Sequence<OUString> names = table->getCellNames();
    const TextReference last(table->getCellByName(names[names.getLength() - 1]), UNO_QUERY_THROW);
    cursor->gotoRange(last->getEnd(), false);
    while (cursor->goRight(1, false)) {
        const RangeReference place = cursor->getStart();
        const Reference<css::uno::XInterface> found = around(place, "TextTable");
        if (!found.is() || nameOf(found) != nameOf(table)) return place;
    }
    return {};
}

void ContentReader::readMarks(MarkTable& marks) {
    marks.clear();
    for (const OUString& name : model_.bookmarks->getBookmarks()->getElementNames())
        readMark(marks, fromUno(name));
}

void ContentReader::readMark(MarkTable& marks, const std::string& name) {
    const Reference<css::text::XTextContent> content(model_.bookmarks->getBookmarks()->getByName(toUno(name)),
                                                     UNO_QUERY_THROW);
    const Reference<css::text::XTextRange> anchor = content->getAnchor();
    const StoryPosition start = positionOf(anchor->getStart());
    const StoryPosition end = positionOf(anchor->getEnd());
    if (!start.story || start.story != end.story) return;
    const auto mark = std::make_shared<MarkRecord>();
    mark->name = name;
    mark->story = start.story;
    mark->inWriter = {start.position, end.position};
    mark->place = *mark->inWriter;
    StoryMap& map = start.story->map();
    // Over a whole table Writer has a bookmark from its first cell to the end of its last.
    const TablePtr table = map.tableAt(start.position);
    if (table && map.inWriter(wholeOf(*table)) == mark->place &&
        table->rows.size() * table->rows[0].size() > 1) {
        mark->place = wholeOf(*table);
    }
    map.addMark(mark);
    marks.list(mark);
}

StoryPosition ContentReader::positionOf(const Reference<css::text::XTextRange>& range) {
    const FoundText found = textOf(range);
    if (!found.story) return {};
    const std::int64_t steps = stepsBefore(found.story->textOf(found.key), range);
    if (steps < 0) return {};
    return {found.story, found.story->map().positionOf({found.key, steps})};
}

FoundText ContentReader::textOf(const Reference<css::text::XTextRange>& range) {
    if (const Reference<css::uno::XInterface> table = around(range, "TextTable"); table.is()) {
        return cellOf(nameOf(table), cellName(around(range, "Cell")));
    }
    const TextReference text = range->getText();
    if (!text.is()) return {};
    // A bookmark that begins in a table names the cell's text for its end behind the table, too.
    const Reference<css::beans::XPropertySet> properties(text, UNO_QUERY);
    const bool isCell = properties.is() && properties->getPropertySetInfo()->hasPropertyByName("CellName");
    return {isCell ? &stories_.front() : &storyOf(text), {}};
}

FoundText ContentReader::cellOf(const std::string& table, const std::string& cell) {
    for (WriterStory& story : stories_) {
        const TablePtr found = story.map().tableNamed(table);
        if (!found) continue;
        for (std::size_t row = 0; row < found->rows.size(); ++row) {
            const auto place = std::ranges::find(found->rows[row], cell, &MappedCell::name);
            if (place == found->rows[row].end()) continue;
            return {&story, {found, {row, static_cast<std::size_t>(place - found->rows[row].begin())}}};
        }
    }
    return {};
}

WriterStory& ContentReader::storyOf(const TextReference& text) {
    const auto found = std::ranges::find(stories_, text, &WriterStory::text);
    if (found != stories_.end()) return *found;
    WriterStory& story = stories_.emplace_back(storyNameOf(model_, text), text, model_.tables);
    story.map().setLength({stepsOf(text) + 1});
    return story;
}

}  // namespace mergeloom::libreoffice
