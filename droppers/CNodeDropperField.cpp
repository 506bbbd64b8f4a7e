#include "droppers/CNodeDropperField.h"

#include "droppers/CNodeDropperForm.h"
#include "droppers/CNodeDropperLabel.h"
#include "droppers/CNodeDropperTable.h"
#include "droppers/CellCount.h"
#include "droppers/ControlNames.h"
#include "droppers/StructureNodes.h"
#include "droppers/TableBookmark.h"
#include "droppers/modBookmarkAdd.h"
#include "droppers/modWordNormalizeName.h"
#include "office/model/word/Application.h"
#include "office/model/word/Bookmarks.h"
#include "office/model/word/Cells.h"
#include "office/model/word/Rows.h"
#include "office/model/word/Tables.h"
#include "xml/modMSXMLHelper.h"

namespace mergeloom {

namespace {

constexpr const char* kFieldModule = "CNodeDropperField";
/// An empty cell's text is the mark of its end.
constexpr const char* kEmptyCell = "\r\a";

/// Whether the selection lies outside the table that the field belongs to, and that table was dropped.
bool isOutsideItsTable(const FieldDropArguments& arguments, const word::DocumentPtr& document,
                       word::Selection& selection) {
    if (!arguments.isTableField) return false;
    return document->Bookmarks()->Exists(arguments.tableName) &&
           !selection.Bookmarks()->Exists(arguments.tableName);
}

/// Moves the caret behind a new place, where the next drop does not touch it.
void leavePlace(word::Bookmark& bookmark, word::Selection& selection, bool endParagraph) {
    bookmark.Range()->Select();
    selection.Collapse(word::WdCollapseDirection::wdCollapseEnd);
    if (endParagraph) {
        selection.TypeParagraph();
    } else {
        selection.TypeText(" ");
    }
}

/// A table of captions over fields: merged cells would leave it open which caption a field has.
bool isMergeTable(word::Table& table) {
    return table.Uniform() && table.Rows()->Count() >= 2;
}

/// The cell above a place in a table; none when the place stands in the first row or the cell is not empty.
word::CellPtr emptyCellAbove(word::Table& table, word::Range& place) {
    const word::CellPtr cell = place.Cells()->Item(1);
    const int row = cell->RowIndex();
    if (row == 1) return {};
    const word::CellPtr above = table.Rows()->Item(row - 1)->Cells()->Item(cell->ColumnIndex());
    return above->Range()->Text() == kEmptyCell ? above : nullptr;
}

}  // namespace

bool CNodeDropperField::FieldDrop(const FieldDropArguments& arguments, const word::DocumentPtr& document) {
    return context_.reports.trap({kFieldModule, "FieldDrop"}, [&] { return drop(arguments, document); });
}

bool CNodeDropperField::drop(const FieldDropArguments& arguments, const word::DocumentPtr& document) {
    if (!arguments.node || !document) return false;
    const word::SelectionPtr selection = document->Application()->Selection();
    if (!mayDrop(arguments, document, *selection)) return false;

    const bool becomesSubform = isSubform(arguments.node);
    if (becomesSubform && isBoundSubform(arguments.node)) return dropTable(arguments, document);
    if (!typeLabel(arguments, document)) return false;
    return becomesSubform ? dropForm(arguments, document, *selection)
                          : dropPlace(arguments, document, *selection);
}

bool CNodeDropperField::typeLabel(const FieldDropArguments& arguments, const word::DocumentPtr& document) {
    if (arguments.labelRequired) {
        CNodeDropperLabel(context_.reports).LabelDrop(arguments.node, document, true);
    }
    return !context_.reports.failed();
}

bool CNodeDropperField::mayDrop(const FieldDropArguments& arguments, const word::DocumentPtr& document,
                                word::Selection& selection) {
    if (isOutsideItsTable(arguments, document, selection)) {
        return context_.reports.refuse(kOutsideItsTable);
    }
    TouchingBookmarks unused;
    if (!ValidateBookmark(context_.reports, *selection.Range(), unused)) return false;
    if (!isSubform(arguments.node)) return takesName(context_, arguments);
    return arguments.treeNode && takesSubform(context_, arguments);
}

bool CNodeDropperField::dropPlace(const FieldDropArguments& arguments, const word::DocumentPtr& document,
                                  word::Selection& selection) {
    std::string name = SimplifyName(GetAttributeValue(arguments.node, Attribute::Name));
    const PlaceContent content{.vfBoundValueUse = arguments.boundValueUse,
                               .vstrPrefix = arguments.parentName,
                               .vstrPictureFile = pictureOf(arguments.node)};
    const word::RangePtr dropPoint = selection.Range();
    const word::BookmarkPtr bookmark =
        rWordBookmarkAdd(context_.reports, *document, *dropPoint, name, content);
    if (!bookmark || context_.reports.failed()) return false;
    context_.places.add(bookmark->Name());
    leavePlace(*bookmark, selection, arguments.addCrLf || arguments.labelRequired);
    return true;
}

bool CNodeDropperField::dropTable(const FieldDropArguments& arguments, const word::DocumentPtr& document) {
    CNodeDropperTable table{context_};
    // Where nothing is chosen, no caption may stand alone. A choice among the outer form's controls says
    // nothing of the subform's own.
    const FieldKeys columns = table.chooseFields(*arguments.treeNode);
    if (columns.empty() || !typeLabel(arguments, document)) return false;
    return table.TableDrop(*arguments.treeNode, document, GetAttributeValue(arguments.node, Attribute::Name),
                           &columns);
}

bool CNodeDropperField::dropForm(const FieldDropArguments& arguments, const word::DocumentPtr& document,
                                 word::Selection& selection) {
    selection.TypeParagraph();
    // The subform's own name is the prefix of its places; as a chosen control it comes with all of its own.
    return CNodeDropperForm(context_).FormDrop(*arguments.treeNode, document,
                                               GetAttributeValue(arguments.node, Attribute::Name), nullptr);
}

bool CNodeDropperField::TableFieldDrop(const FieldDropArguments& arguments,
                                       const word::DocumentPtr& document) {
    if (!arguments.node || !document) return false;
    const word::SelectionPtr selection = document->Application()->Selection();
    if (cellCount(*selection->Range()) == 0) {
        return context_.reports.refuse("The tablefield may only be dropped on a table.");
    }
    if (!takesName(context_, arguments)) return false;
    const word::TablePtr table = selection->Tables()->Item(1);
    if (!isMergeTable(*table)) throw AutomationError(kApplicationError, "Incorrect Word Table.");
    return context_.reports.trap({kFieldModule, "TableFieldDrop"},
                                 [&] { return dropIntoTable(arguments, document, *table); });
}

bool CNodeDropperField::dropIntoTable(const FieldDropArguments& arguments, const word::DocumentPtr& document,
                                      word::Table& table) {
    const word::BookmarksPtr bookmarks = document->Bookmarks();
    const bool isNewTable = !arguments.tableName.empty() && !bookmarks->Exists(arguments.tableName);
    if (isNewTable && !markTable(context_, *document, table, arguments.tableName)) {
        return false;
    }
    FieldDropArguments place = arguments;
    if (arguments.labelRequired) place.labelRequired = !typeCaptionAbove(arguments, document, table);
    return !context_.reports.failed() && FieldDrop(place, document);
}

bool CNodeDropperField::typeCaptionAbove(const FieldDropArguments& arguments,
                                         const word::DocumentPtr& document, word::Table& table) {
    const word::SelectionPtr selection = document->Application()->Selection();
    const word::RangePtr place = selection->Range();
    const word::CellPtr above = emptyCellAbove(table, *place);
    if (!above) return false;
    above->Select();
    selection->Collapse(word::WdCollapseDirection::wdCollapseStart);
    CNodeDropperLabel(context_.reports).LabelDrop(arguments.node, document, false);
    place->Select();
    return true;
}

std::string CNodeDropperField::pictureOf(const XmlNode& control) const {
    const std::string image = GetAttributeValue(control, Attribute::Image);
    // Without its file an image control becomes a place with a text, as the tree offers it then.
    return image.empty() ? "" : context_.findPicture(image);
}

}  // namespace mergeloom
