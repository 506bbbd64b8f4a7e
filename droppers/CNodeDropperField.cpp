#include "droppers/CNodeDropperField.h"

#include "droppers/CNodeDropperForm.h"
#include "droppers/CNodeDropperLabel.h"
#include "droppers/CNodeDropperTable.h"
#include "droppers/FurtherPlaceNames.h"
#include "droppers/ObjectLayout.h"
#include "droppers/SelectionCheck.h"
#include "droppers/StructureNodes.h"
#include "droppers/TableBookmark.h"
#include "droppers/modBookmarkAdd.h"
#include "droppers/modWordNormalizeName.h"
#include "office/model/word/Application.h"
#include "office/model/word/Bookmarks.h"
#include "office/model/word/Table.h"
#include "xml/modMSXMLHelper.h"

#include <algorithm>
#include <string>
#include <vector>

namespace mergeloom {

namespace {

std::string quoted(const std::string& text) {
    return "\"" + text + "\"";
}

std::string nameOf(const FieldDropArguments& control) {
    return GetAttributeValue(control.node, Attribute::Name);
}

std::string subjectOf(DropReports& reports, const FieldDropArguments& control) {
    const std::string name = nameOf(control);
    if (!name.empty()) return "The control " + quoted(name);
    return "The control with the caption " + quoted(GetControlCaption(reports, control.node));
}

/// Returns the reason why no place can be named after a control, whose name was simplified; empty when one
/// can.
std::string reasonWithoutName(const DropContext& context, const FieldDropArguments& control,
                              const std::string& simplifiedName) {
    if (!hasUsableCharacter(simplifiedName)) {
        return nameOf(control).empty() ? "it has no name"
                                       : "its name holds no letter, no digit and no underscore";
    }
    const auto value = control.boundValueUse ? letters::ValueKind::Bound : letters::ValueKind::Display;
    const std::string name = placeName(control.parentName, simplifiedName, value);
    return context.normalizeName(name, false).empty() ? "its name is too long" : "";
}

bool isNameable(const DropContext& context, const FieldDropArguments& control) {
    return reasonWithoutName(context, control, SimplifyName(nameOf(control))).empty();
}

/// Returns the simplified name of a control, after which a place is named. If none can be, informs the user
/// why the control is omitted and returns an empty text.
std::string takenName(DropContext& context, const FieldDropArguments& control) {
    std::string name = SimplifyName(nameOf(control));
    const std::string reason = reasonWithoutName(context, control, name);
    if (reason.empty()) return name;
    context.reports.refuse(subjectOf(context.reports, control) + " is left out: " + reason + ".");
    return {};
}

/// Returns the controls of a subform that are dropped: those of a table, or those of a form.
std::vector<FieldDropArguments> controlsOf(const DropContext& context, const FieldDropArguments& subform) {
    const TreeNode& node = *subform.treeNode;
    const std::string prefix = nameOf(subform);
    std::vector<FieldDropArguments> controls;
    for (const TreeNode* control : layoutOfSubform(subform.node) == ObjectLayout::Table
                                       ? fieldsOf(context.xmlNodes, node)
                                       : allControls(node)) {
        const XmlNode element = elementOf(context.xmlNodes, control);
        // A control without a form below it has the kinds of a drop there.
        if (element) controls.push_back({.node = element, .parentName = prefix, .treeNode = control});
    }
    return controls;
}

bool leavesAnything(const DropContext& context, const FieldDropArguments& subform) {
    return std::ranges::any_of(controlsOf(context, subform), [&](const FieldDropArguments& control) {
        return isSubform(control.node) ? leavesAnything(context, control) : isNameable(context, control);
    });
}

constexpr const char* kFieldModule = "CNodeDropperField";
/// An empty cell's text is the mark of its end.
constexpr const char* kEmptyCell = "\r\a";

/// Returns true if the table that the field belongs to exists and the selection is outside of it.
bool isOutsideItsTable(const FieldDropArguments& arguments, const word::DocumentPtr& document,
                       word::Selection& selection) {
    if (!arguments.isTableField) return false;
    return document->Bookmarks()->Exists(arguments.tableName) &&
           !selection.Bookmarks()->Exists(arguments.tableName);
}

/// Moves the caret after a new place, where the next drop does not touch it.
void leavePlace(word::Bookmark& bookmark, word::Selection& selection, bool endParagraph) {
    bookmark.Select();
    selection.Collapse(word::WdCollapseDirection::wdCollapseEnd);
    if (endParagraph) {
        selection.TypeParagraph();
    } else {
        selection.TypeText(" ");
    }
}

/// Returns true for a table of captions over fields. With merged cells it would be unclear which caption a
/// field has.
bool isMergeTable(word::Table& table) {
    return table.Uniform() && table.Rows()->Count() >= 2;
}

/// Returns the cell above a place in a table; null when the place is in the first row or the cell is not
/// empty.
word::CellPtr emptyCellAbove(word::Table& table, word::Range& place) {
    const word::CellPtr cell = place.Cells()->Item(1);
    const int row = cell->RowIndex();
    if (row == 1) return {};
    const word::CellPtr above = table.Rows()->Item(row - 1)->Cells()->Item(cell->ColumnIndex());
    return above->Range()->Text() == kEmptyCell ? above : nullptr;
}

bool takesSubform(DropContext& context, const FieldDropArguments& subform) {
    if (leavesAnything(context, subform)) return true;
    const std::vector<FieldDropArguments> controls = controlsOf(context, subform);
    if (controls.empty()) {
        context.reports.tell("The subform " + quoted(nameOf(subform)) +
                             " is left out: it has no control that can be dropped.");
        return false;
    }
    for (const FieldDropArguments& control : controls)
        takesControl(context, control);
    return context.reports.refuse("The subform " + quoted(nameOf(subform)) +
                                  " is left out: none of its controls can be dropped.");
}

}  // namespace

bool takesName(DropContext& context, const FieldDropArguments& control) {
    return !takenName(context, control).empty();
}

bool takesControl(DropContext& context, const FieldDropArguments& control) {
    if (!isSubform(control.node)) return takesName(context, control);
    return control.treeNode && takesSubform(context, control);
}

bool CNodeDropperField::FieldDrop(const FieldDropArguments& arguments, const word::DocumentPtr& document) {
    return context_.reports.trap({kFieldModule, "FieldDrop"}, [&] { return drop(arguments, document); });
}

bool CNodeDropperField::drop(const FieldDropArguments& arguments, const word::DocumentPtr& document) {
    if (!arguments.node || !document) return false;
    const word::SelectionPtr selection = document->Application()->Selection();
    if (!mayDropAt(arguments, document, *selection)) return false;

    if (isSubform(arguments.node)) return dropSubform(arguments, document, *selection);
    const std::string name = takenName(context_, arguments);
    return !name.empty() && typeLabel(arguments, *selection) &&
           dropPlace(arguments, name, document, *selection);
}

bool CNodeDropperField::dropSubform(const FieldDropArguments& arguments, const word::DocumentPtr& document,
                                    word::Selection& selection) {
    if (!takesControl(context_, arguments)) return false;
    if (layoutOfSubform(arguments.node) == ObjectLayout::Table) {
        return dropTable(arguments, document, selection);
    }
    return typeLabel(arguments, selection) && dropForm(arguments, document, selection);
}

bool CNodeDropperField::typeLabel(const FieldDropArguments& arguments, word::Selection& selection) {
    if (arguments.labelRequired) CNodeDropperLabel(context_.reports).typeLabel(arguments.node, selection);
    return !context_.reports.failed();
}

bool CNodeDropperField::mayDropAt(const FieldDropArguments& arguments, const word::DocumentPtr& document,
                                  word::Selection& selection) {
    if (isOutsideItsTable(arguments, document, selection)) {
        return context_.reports.refuse(kOutsideItsTable);
    }
    TouchingBookmarks unused;
    return ValidateBookmark(context_.reports, *selection.Range(), unused);
}

bool CNodeDropperField::dropPlace(const FieldDropArguments& arguments, std::string name,
                                  const word::DocumentPtr& document, word::Selection& selection) {
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

bool CNodeDropperField::dropTable(const FieldDropArguments& arguments, const word::DocumentPtr& document,
                                  word::Selection& selection) {
    CNodeDropperTable table{context_};
    // When nothing is chosen, no caption is written. A choice among the outer form's controls does not apply
    // to the subform's own.
    const FieldKeys columns = table.chooseFields(*arguments.treeNode);
    if (columns.empty() || !typeLabel(arguments, selection)) return false;
    return table.TableDrop(*arguments.treeNode, document, GetAttributeValue(arguments.node, Attribute::Name),
                           &columns);
}

bool CNodeDropperField::dropForm(const FieldDropArguments& arguments, const word::DocumentPtr& document,
                                 word::Selection& selection) {
    selection.TypeParagraph();
    // The subform's own name is the prefix of its places. A chosen subform brings all of its controls.
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
    if (isNewTable && markTable(context_, *document, table, arguments.tableName).empty()) {
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
    std::string image = GetAttributeValue(control, Attribute::Image);
    // Without its file, an image control becomes a place with a text, which is how the tree offers it then.
    return image.empty() ? image : context_.findPicture(image);
}

}  // namespace mergeloom
