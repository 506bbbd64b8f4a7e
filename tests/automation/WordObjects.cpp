#include "automation/WordObjects.h"

#include "automation/Members.h"
#include "office/model/word/Bookmarks.h"
#include "office/model/word/Fields.h"
#include "office/model/word/Range.h"
#include "office/model/word/Selection.h"
#include "office/model/word/Table.h"

#include <utility>

namespace mergeloom::automation {

namespace {

DispatchPtr wordBookmark(const word::BookmarkPtr& bookmark, const word::DocumentPtr& document) {
    return makeObject(
        {
            property(
                "End", [bookmark] { return bookmark->End().value; },
                [bookmark](const Value& end) { bookmark->SetEnd({end.number()}); }),
            property("Name", [bookmark] { return bookmark->Name(); }),
            property("Range", [=] { return wordRange(bookmark->Range(), document); }),
            action("Select", [bookmark] { bookmark->Select(); }),
            property(
                "Start", [bookmark] { return bookmark->Start().value; },
                [bookmark](const Value& start) { bookmark->SetStart({start.number()}); }),
        },
        bookmark);
}

DispatchPtr wordCell(const word::CellPtr& cell, const word::DocumentPtr& document) {
    return makeObject({
        property("ColumnIndex", [cell] { return cell->ColumnIndex(); }),
        property("Range", [=] { return wordRange(cell->Range(), document); }),
        property("RowIndex", [cell] { return cell->RowIndex(); }),
        action("Select", [cell] { cell->Select(); }),
    });
}

DispatchPtr wordRow(const word::RowPtr& row, const word::DocumentPtr& document) {
    return makeObject({property("Cells", [=] { return wordCells(row->Cells(), document); })});
}

DispatchPtr wordRows(const word::RowsPtr& rows, const word::DocumentPtr& document) {
    return makeObject({
        countOf(rows),
        method("Item", "Index",
               [=](const Given& given) { return wordRow(rows->Item(given[0].integer()), document); }),
        method("Add", "BeforeRow?", [=](const Given&) { return wordRow(rows->Add(), document); }),
    });
}

DispatchPtr wordTable(const word::TablePtr& table, const word::DocumentPtr& document) {
    return makeObject({
        property("Columns", [table] { return countedOnly(table->Columns()->Count()); }),
        action("Delete", [table] { table->Delete(); }),
        property("Range", [=] { return wordRange(table->Range(), document); }),
        property("Rows", [=] { return wordRows(table->Rows(), document); }),
        action("Select", [table] { table->Select(); }),
        property("Uniform", [table] { return table->Uniform(); }),
    });
}

DispatchPtr wordField(const word::FieldPtr& field, const word::DocumentPtr& document) {
    return makeObject({
        property("Code", [=] { return wordRange(field->Code(), document); }),
        action("Delete", [field] { field->Delete(); }),
        action("Select", [field] { field->Select(); }),
        property("Type", [field] { return static_cast<int>(field->Type()); }),
    });
}

word::BookmarkPtr findBookmark(word::Bookmarks& bookmarks, const Value& index) {
    return index.isText() ? bookmarks.Item(index.text()) : bookmarks.Item(index.integer());
}

/// The double changes no range: it accepts only the present bounds.
template <class Owner>
Member setRange(const std::shared_ptr<Owner>& owner) {
    return method("SetRange", "Start, End", [owner](const Given& given) -> Value {
        word::RangePtr range;
        if constexpr (std::is_same_v<Owner, word::Range>) {
            range = owner;
        } else {
            range = owner->Range();
        }
        const bool isSame =
            range->Start().value == given[0].number() && range->End().value == given[1].number();
        if (!isSame) throw AutomationError(kCommandFailed, "The double does not move ranges.");
        return {};
    });
}

word::WdUnits unitOf(const Value& given) {
    return given.isEmpty() ? word::WdUnits::wdCharacter : word::WdUnits{given.integer()};
}

Value previousOf(word::Range& range, const Given& given, const word::DocumentPtr& document) {
    const word::RangePtr found =
        range.Previous(unitOf(given[0]), given[1].isEmpty() ? 1 : given[1].integer());
    return found ? wordRange(found, document) : DispatchPtr();
}

/// The selection is the only one of which the model returns further ranges.
DispatchPtr duplicateOf(const word::RangePtr& range, const word::DocumentPtr& document) {
    const word::SelectionPtr selection = document->Application()->Selection();
    const word::RangePtr selected = selection->Range();
    range->Select();
    const word::RangePtr duplicate = selection->Range();
    selected->Select();
    return wordRange(duplicate, document);
}

DispatchPtr wordFont(const word::SelectionPtr& selection) {
    return makeObject({property(
        "Size", nullptr, [selection](const Value& points) { selection->Font()->SetSize(points.real()); })});
}

}  // namespace

DispatchPtr wordBookmarks(const word::BookmarksPtr& bookmarks, const word::DocumentPtr& document) {
    const auto make = [document](const word::BookmarkPtr& bookmark) {
        return wordBookmark(bookmark, document);
    };
    return makeObject(
        {
            method("Add", "Name, Range?",
                   [=](const Given& given) {
                       word::Range& range = modelAs<word::Range>(given[1]);
                       return wordBookmark(bookmarks->Add(given[0].text(), range), document);
                   }),
            countOf(bookmarks),
            method("Exists", "Name", [=](const Given& given) { return bookmarks->Exists(given[0].text()); }),
            method("Item", "Index",
                   [=](const Given& given) { return make(findBookmark(*bookmarks, given[0])); }),
        },
        nullptr, itemsOf(bookmarks, make));
}

DispatchPtr wordCells(const word::CellsPtr& cells, const word::DocumentPtr& document) {
    return makeObject({
        countOf(cells),
        method("Item", "Index",
               [=](const Given& given) { return wordCell(cells->Item(given[0].integer()), document); }),
    });
}

DispatchPtr wordFields(const word::FieldsPtr& fields, const word::DocumentPtr& document) {
    const auto make = [document](const word::FieldPtr& field) { return wordField(field, document); };
    return makeObject(
        {countOf(fields),
         method("Item", "Index", [=](const Given& given) { return make(fields->Item(given[0].integer())); })},
        nullptr, itemsOf(fields, make));
}

DispatchPtr wordInlineShapes(const word::InlineShapesPtr& shapes) {
    return makeObject({
        countOf(shapes),
        method("AddPicture", "FileName, LinkToFile?, SaveWithDocument?, Range?",
               [shapes](const Given& given) -> Value {
                   modelAs<word::Range>(given[3]);
                   shapes->AddPicture(given[0].text());
                   return {};
               }),
    });
}

DispatchPtr wordRange(const word::RangePtr& range, const word::DocumentPtr& document) {
    return makeObject(
        {
            property("Bookmarks", [=] { return wordBookmarks(range->Bookmarks(), document); }),
            property("Cells", [=] { return wordCells(range->Cells(), document); }),
            property("Document",
                     [=] {
                         return makeObject(
                             {property("StoryRanges", [=] { return wordStoryRanges(document); })});
                     }),
            property("Duplicate", [=] { return duplicateOf(range, document); }),
            property("End", [range] { return range->End().value; }),
            property("Fields", [=] { return wordFields(range->Fields(), document); }),
            property("InlineShapes", [range] { return wordInlineShapes(range->InlineShapes()); }),
            method("InRange", "Range",
                   [range](const Given& given) {
                       return range->storyName() == modelAs<word::Range>(given[0]).storyName();
                   }),
            property("NextStoryRange", [=] { return nextStory(range->storyName(), document); }),
            method("Previous", "Unit?, Count?",
                   [=](const Given& given) { return previousOf(*range, given, document); }),
            action("Select", [range] { range->Select(); }),
            setRange(range),
            property("Start", [range] { return range->Start().value; }),
            property("StoryType", [range] { return storyTypeOf(range->storyName()); }),
            property("Tables", [=] { return wordTables(range->Tables(), document); }),
            property(
                "Text", [range] { return range->Text(); },
                [range](const Value& text) { range->SetText(text.text()); }),
        },
        range);
}

DispatchPtr wordSelection(const word::SelectionPtr& selection, const word::DocumentPtr& document) {
    return makeObject({
        property("Bookmarks", [=] { return wordBookmarks(selection->Bookmarks(), document); }),
        method("Collapse", "Direction?",
               [selection](const Given& given) -> Value {
                   const bool toEnd = given[0].integer() == 0;
                   selection->Collapse(toEnd ? word::WdCollapseDirection::wdCollapseEnd
                                             : word::WdCollapseDirection::wdCollapseStart);
                   return {};
               }),
        property("End", [selection] { return selection->Range()->End().value; }),
        method("EndKey", "Unit?, Extend?",
               [selection](const Given& given) -> Value {
                   selection->EndKey(unitOf(given[0]));
                   return {};
               }),
        property("Fields", [=] { return wordFields(selection->Fields(), document); }),
        property("Font", [selection] { return wordFont(selection); }),
        property("InlineShapes", [selection] { return wordInlineShapes(selection->InlineShapes()); }),
        property("Range", [=] { return wordRange(selection->Range(), document); }),
        setRange(selection),
        property("ShapeRange", [selection] { return countedOnly(selection->ShapeRange()->Count()); }),
        property("Start", [selection] { return selection->Range()->Start().value; }),
        property("Tables", [=] { return wordTables(selection->Tables(), document); }),
        property(
            "Text", [selection] { return selection->Range()->Text(); },
            [selection](const Value& text) { selection->SetText(text.text()); }),
        action("TypeParagraph", [selection] { selection->TypeParagraph(); }),
        method("TypeText", "Text",
               [selection](const Given& given) -> Value {
                   selection->TypeText(given[0].text());
                   return {};
               }),
    });
}

DispatchPtr wordTables(const word::TablesPtr& tables, const word::DocumentPtr& document) {
    return makeObject({
        method("Add", "Range, NumRows, NumColumns, DefaultTableBehavior?, AutoFitBehavior?",
               [=](const Given& given) {
                   word::Range& range = modelAs<word::Range>(given[0]);
                   return wordTable(tables->Add(range, given[1].integer(), given[2].integer()), document);
               }),
        countOf(tables),
        method("Item", "Index",
               [=](const Given& given) { return wordTable(tables->Item(given[0].integer()), document); }),
    });
}

}  // namespace mergeloom::automation
