#include "office/libreoffice/word/WriterTables.h"

#include "base/AutomationError.h"
#include "office/libreoffice/word/StoryOrder.h"
#include "office/libreoffice/word/TableCells.h"
#include "office/libreoffice/word/TextEditor.h"
#include "office/libreoffice/word/TextPortions.h"
#include "office/libreoffice/word/WriterTable.h"
#include "office/model/word/Range.h"

#include <algorithm>
#include <com/sun/star/text/XParagraphCursor.hpp>

namespace mergeloom::libreoffice {

namespace {

constexpr int kMostColumns = 63;

/// The table around the range, or the outermost ones that it touches.
std::vector<TableReference> touchedBy(const TrackedRange& range) {
    std::vector<TableReference> found;
    if (const TableReference around = tableAround(range); around.is()) return {around};
    if (range.cursor->getString().indexOf('\n') < 0) return found;
    for (const auto elements = enumerationOf(range.cursor); elements->hasMoreElements();) {
        if (const TableReference table{elements->nextElement(), UNO_QUERY}; table.is())
            found.push_back(table);
    }
    return found;
}

void checkSize(int rows, int columns) {
    if (columns > kMostColumns) {
        throw AutomationError(kCommandFailed, "A Word table has at most 63 columns; " +
                                                  std::to_string(columns) + " were asked for.");
    }
    if (rows < 1 || columns < 1) throw AutomationError(kCommandFailed, "A table needs rows and columns.");
}

/// Puts a table before the paragraph in which the range begins, which is split where text stands before the
/// range.
TableReference insertTable(WriterContent& content, const TrackedRange& range, int rows, int columns) {
    content.checkMayEdit();
    const RangePtr place = content.copyOf(range);
    place->cursor->collapseToStart();
    place->startBeyond = place->endBeyond = Beyond::Nothing;
    if (!Reference<css::text::XParagraphCursor>(place->cursor, UNO_QUERY_THROW)->isStartOfParagraph()) {
        TextEditor(content).replace(*place, "\r");
        place->cursor->collapseToEnd();
    }
    TableReference made(content.model().factory->createInstance("com.sun.star.text.TextTable"),
                        UNO_QUERY_THROW);
    made->initialize(rows, columns);
    place->cursor->getText()->insertTextContent(rangeOf(place->cursor),
                                                Reference<css::text::XTextContent>(made.get()), false);
    Reference<css::beans::XPropertySet>(made, UNO_QUERY_THROW)
        ->setPropertyValue("RepeatHeadline", css::uno::Any(false));
    content.finder().forgetGap();
    content.notePlaceAfter(made, *place);
    return made;
}

}  // namespace

const TextReference& WriterTables::story() const {
    return range_ ? range_->story : content_->model().body;
}

std::vector<TableReference> WriterTables::allTables() const {
    const WriterModel& model = content_->model();
    std::vector<std::pair<RangeReference, TableReference>> placed;
    for (const OUString& name : model.tables->getElementNames()) {
        const TableReference table(model.tables->getByName(name), UNO_QUERY_THROW);
        const RangeReference start = cursorOverTable(table)->getStart();
        if (!tableAround(table).is() && order::holds(model.body, start)) placed.emplace_back(start, table);
    }
    std::ranges::sort(placed, [&](const auto& one, const auto& other) {
        return order::compareStarts(model.body, one.first, other.first) < 0;
    });
    std::vector<TableReference> tables;
    for (const auto& [start, table] : placed)
        tables.push_back(table);
    return tables;
}

const std::vector<TableReference>& WriterTables::tables() {
    if (!tables_) tables_ = content_->call([&] { return range_ ? touchedBy(*range_) : allTables(); });
    return *tables_;
}

int WriterTables::Count() {
    return static_cast<int>(tables().size());
}

word::TablePtr WriterTables::Item(int number) {
    if (number < 1 || number > Count()) throw AutomationError(kMemberNotFound, "There is no such table.");
    return std::make_shared<WriterTable>(
        StoryTable{content_, story(), tables()[static_cast<std::size_t>(number) - 1]});
}

word::TablePtr WriterTables::Add(word::Range& range, int rows, int columns) {
    checkSize(rows, columns);
    return content_->call([&] {
        const RangePtr place = content_->linkedTo(range);
        return std::make_shared<WriterTable>(
            StoryTable{content_, place->story, insertTable(*content_, *place, rows, columns)});
    });
}

}  // namespace mergeloom::libreoffice
