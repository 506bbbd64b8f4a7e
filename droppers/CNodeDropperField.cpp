#include "droppers/CNodeDropperField.h"

#include "droppers/CNodeDropperForm.h"
#include "droppers/CNodeDropperLabel.h"
#include "droppers/Refusals.h"
#include "droppers/StructureNodes.h"
#include "droppers/modBookmarkAdd.h"
#include "droppers/modWordNormalizeName.h"
#include "office/model/word/Application.h"
#include "office/model/word/Bookmarks.h"
#include "xml/modMSXMLHelper.h"

namespace mergeloom {

namespace {

/// Whether the selection lies outside the table that the field belongs to, and that table was dropped.
bool isOutsideItsTable(const FieldDropArguments& arguments, word::Selection& selection) {
    if (!arguments.isTableField) return false;
    const std::string tableName = WordNormalizeName(arguments.parentName, false);
    return arguments.document->Bookmarks()->Exists(tableName) && !selection.Bookmarks()->Exists(tableName);
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

}  // namespace

bool CNodeDropperField::FieldDrop(const FieldDropArguments& arguments) {
    return context_.reports.trap({"CNodeDropperField", "FieldDrop"}, [&] { return drop(arguments); });
}

bool CNodeDropperField::drop(const FieldDropArguments& arguments) {
    if (!arguments.node || !arguments.document) return false;
    const word::SelectionPtr selection = arguments.document->Application()->Selection();
    if (!mayDrop(arguments, *selection)) return false;

    if (arguments.labelRequired) {
        CNodeDropperLabel(context_.reports).LabelDrop(arguments.node, arguments.document, true);
        if (context_.reports.failed()) return false;
    }
    return isSubform(arguments.node) ? dropSubform(arguments, *selection) : dropPlace(arguments, *selection);
}

bool CNodeDropperField::mayDrop(const FieldDropArguments& arguments, word::Selection& selection) {
    if (isOutsideItsTable(arguments, selection)) {
        return context_.reports.refuse(
            "The field may only be dropped on a table\u2019s merge area if it is a tablefield.");
    }
    TouchingBookmarks unused;
    if (!ValidateBookmark(context_.reports, *selection.Range(), unused)) return false;
    if (!isSubform(arguments.node)) return true;
    // All that speaks against a subform is told before its caption is typed.
    if (!arguments.treeNode) return false;
    return !isBoundSubform(arguments.node) ||
           refuseTable(context_.reports, GetAttributeValue(arguments.node, Attribute::Name));
}

bool CNodeDropperField::dropPlace(const FieldDropArguments& arguments, word::Selection& selection) {
    std::string name = SimplifyName(GetAttributeValue(arguments.node, Attribute::Name));
    const PlaceContent content{.boundValueUse = arguments.boundValueUse,
                               .prefix = arguments.parentName,
                               .pictureFile = pictureOf(arguments.node)};
    const word::RangePtr dropPoint = selection.Range();
    const word::BookmarkPtr bookmark =
        rWordBookmarkAdd(context_.reports, *arguments.document, *dropPoint, name, content);
    if (!bookmark || context_.reports.failed()) return false;
    leavePlace(*bookmark, selection, arguments.addCrLf || arguments.labelRequired);
    return true;
}

bool CNodeDropperField::dropSubform(const FieldDropArguments& arguments, word::Selection& selection) {
    selection.TypeParagraph();
    // The subform's own name is the prefix of its places. A choice of fields is one among the outer form's
    // controls, so a chosen subform comes with all of its own.
    return CNodeDropperForm(context_).FormDrop(*arguments.treeNode, arguments.document,
                                               GetAttributeValue(arguments.node, Attribute::Name), nullptr);
}

std::string CNodeDropperField::pictureOf(const XmlNode& control) const {
    const std::string image = GetAttributeValue(control, Attribute::Image);
    // Without its file an image control becomes a place with a text, as the tree offers it then.
    return image.empty() ? "" : context_.findPicture(image);
}

}  // namespace mergeloom
