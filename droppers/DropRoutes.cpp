#include "droppers/DropRoutes.h"

#include "droppers/CNodeDropperForm.h"
#include "droppers/CNodeDropperLabel.h"
#include "droppers/CNodeDropperLabelDoc.h"
#include "droppers/CNodeDropperTable.h"
#include "droppers/TableBookmark.h"

namespace mergeloom {

bool WordDropRoutes::labelDrop(const XmlNode& control) {
    return CNodeDropperLabel(context_.reports).LabelDrop(control, document_, false);
}

bool WordDropRoutes::fieldDrop(FieldDropArguments arguments) {
    arguments.tableName = tableNameOf(context_.xmlNodes, *arguments.treeNode, tableBookmarkName);
    CNodeDropperField dropper{context_};
    return arguments.isTableField ? dropper.TableFieldDrop(arguments, document_)
                                  : dropper.FieldDrop(arguments, document_);
}

bool WordDropRoutes::formDrop(const TreeNode& node, const std::string& name) {
    return CNodeDropperForm(context_).FormDrop(node, document_, name, context_.settings.fields);
}

bool WordDropRoutes::tableDrop(const TreeNode& node, const std::string& name) {
    return CNodeDropperTable(context_).TableDrop(node, document_, name, context_.settings.fields);
}

bool WordDropRoutes::labelDocumentDrop(const TreeNode& node, const std::string& name) {
    return CNodeDropperLabelDoc(context_).LabelDocumentDrop(node, document_, name, context_.settings.fields);
}

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
