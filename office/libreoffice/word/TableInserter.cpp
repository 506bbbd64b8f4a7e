#include "office/libreoffice/word/TableInserter.h"

#include "base/AutomationError.h"
#include "office/libreoffice/session/UnoText.h"
#include "office/libreoffice/word/TextEditor.h"

#include <algorithm>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/table/XCellRange.hpp>
#include <com/sun/star/text/XParagraphCursor.hpp>
#include <com/sun/star/text/XTextTable.hpp>
#include <utility>

namespace mergeloom::libreoffice {

namespace {

bool isParagraphStart(const CursorReference& cursor) {
    return Reference<css::text::XParagraphCursor>(cursor, UNO_QUERY_THROW)->isStartOfParagraph();
}

std::vector<MappedCell> emptyCells(const Reference<css::text::XTextTable>& table) {
    std::vector<MappedCell> cells;
    for (const OUString& name : table->getCellNames())
        cells.push_back({fromUno(name), {0}});
    return cells;
}

/// The name of the cell below the one of that name, in a column of cells that were never split.
std::string nameBelow(const std::string& name) {
    const std::size_t digits = name.find_first_of("0123456789");
    return name.substr(0, digits) + std::to_string(std::stoi(name.substr(digits)) + 1);
}

}  // namespace

TablePtr TableInserter::insert(WriterStory& story, CharacterPosition position, int rows, int columns) {
    content_.checkMayEdit();
    if (!isParagraphStart(content_.cursorOver(story, {position, position}))) {
        position = position + TextEditor(content_).insert(story, position, "\r");
    }
    const TextPlace place = story.map().placeOf(position);
    const TextReference& text = story.textOf(place.text);
    const Reference<css::text::XTextTable> made(
        content_.model().factory->createInstance("com.sun.star.text.TextTable"), UNO_QUERY_THROW);
    made->initialize(rows, columns);
    const Reference<css::text::XTextContent> inserted(made.get());
    text->insertTextContent(rangeOf(content_.needle().at(story.needleText(place.text), place.steps)),
                            inserted, false);
    content_.needle().forget();
    Reference<css::beans::XPropertySet>(made, UNO_QUERY_THROW)
        ->setPropertyValue("RepeatHeadline", css::uno::Any(false));

    auto table = std::make_shared<MappedTable>();
    table->name = fromUno(Reference<css::container::XNamed>(made, UNO_QUERY_THROW)->getName());
    table->start = position;
    table->rows = rowsOfCells(emptyCells(made));
    story.map().insertTable(table);
    content_.settle();
    return table;
}

void TableInserter::appendRow(WriterStory& story, MappedTable& table) {
    content_.checkMayEdit();
    content_.flush();
    const Reference<css::text::XTextTable> writerTable = story.writerTable(table);
    const auto rows = writerTable->getRows();
    rows->insertByIndex(rows->getCount(), 1);
    MappedRow row;
    for (const MappedCell& cell : table.rows.back())
        row.push_back({nameBelow(cell.name), {0}});
    story.map().appendRow(table, std::move(row));
    story.forgetCells();
    content_.needle().forget();
    content_.settle();
}

}  // namespace mergeloom::libreoffice
