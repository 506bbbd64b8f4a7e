#include "droppers/ExcelDropRoutes.h"

#include "droppers/CNodeDropperForm.h"
#include "droppers/CNodeDropperLabel.h"
#include "droppers/CNodeDropperTable.h"
#include "droppers/TableBookmark.h"

namespace mergeloom {

bool ExcelDropRoutes::labelDrop(const XmlNode& control) {
    return CNodeDropperLabel(context_.reports).xlLabelDrop(control, workbook_);
}

bool ExcelDropRoutes::fieldDrop(FieldDropArguments arguments) {
    arguments.tableName = tableNameOf(context_.xmlNodes, *arguments.treeNode, tableRangeName);
    return CNodeDropperField(context_).xlFieldDrop(arguments, workbook_) > 0;
}

bool ExcelDropRoutes::formDrop(const TreeNode& node, const std::string& name) {
    return CNodeDropperForm(context_).xlFormDrop(node, workbook_, name, context_.settings.fields) > 0;
}

bool ExcelDropRoutes::tableDrop(const TreeNode& node, const std::string& name) {
    return CNodeDropperTable(context_).xlTableDrop(node, workbook_, name, context_.settings.fields) > 0;
}

bool ExcelDropRoutes::labelDocumentDrop(const TreeNode& /*node*/, const std::string& /*name*/) {
    return context_.reports.refuse("Label documents are made in Word only.");
}

}  // namespace mergeloom
