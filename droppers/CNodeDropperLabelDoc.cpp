#include "droppers/CNodeDropperLabelDoc.h"

#include "droppers/CNodeDropperField.h"
#include "droppers/SelectionCheck.h"
#include "droppers/StructureNodes.h"
#include "office/model/word/Application.h"

namespace mergeloom {

namespace {

ControlNodes withoutSubforms(const XmlNodeCollection& xmlNodes, ControlNodes controls) {
    std::erase_if(controls, [&](const TreeNode* control) { return isSubform(elementOf(xmlNodes, control)); });
    return controls;
}

}  // namespace

bool CNodeDropperLabelDoc::LabelDocumentDrop(const TreeNode& robjTVNode,
                                             const word::DocumentPtr& robjDocument,
                                             const std::string& baseName, const FieldKeys* rcolFields) {
    return context_.reports.trap({"CNodeDropperLabelDoc", "LabelDocumentDrop"}, [&] {
        if (!robjTVNode.Child()) return false;
        if (!takesCompositeDrop(*robjDocument->Application()->Selection())) {
            return context_.reports.refuse("It is impossible to insert the form into current selection.");
        }
        const std::string prefix = placePrefix(context_.xmlNodes, robjTVNode, baseName);
        return dropControls(robjTVNode, robjDocument, prefix, rcolFields);
    });
}

bool CNodeDropperLabelDoc::dropControls(const TreeNode& object, const word::DocumentPtr& document,
                                        const std::string& prefix, const FieldKeys* keys) {
    const ControlNodes controls =
        keys ? chosenControls(object, *keys) : withoutSubforms(context_.xmlNodes, allControls(object));
    bool dropped = false;
    std::int64_t handled = 0;
    for (const TreeNode* control : controls) {
        const FieldDropArguments arguments{
            .node = elementOf(context_.xmlNodes, control), .parentName = prefix, .treeNode = control};
        dropped |= CNodeDropperField(context_).FieldDrop(arguments, document);
        if (context_.reports.failed()) return false;
        context_.progress.advance(++handled, std::ssize(controls));
    }
    return dropped;
}

}  // namespace mergeloom
