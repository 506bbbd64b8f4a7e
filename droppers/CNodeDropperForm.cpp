#include "droppers/CNodeDropperForm.h"

#include "droppers/CNodeDropperField.h"
#include "droppers/ControlNodes.h"
#include "droppers/SelectionCheck.h"
#include "droppers/StructureNodes.h"
#include "office/model/word/Application.h"

namespace mergeloom {

bool CNodeDropperForm::FormDrop(const TreeNode& robjTVNode, const word::DocumentPtr& robjDocument,
                                const std::string& baseName, const FieldKeys* rcolFields) {
    return context_.reports.trap({"CNodeDropperForm", "FormDrop"}, [&] {
        if (!robjTVNode.Child()) return false;
        if (!takesCompositeDrop(*robjDocument->Application()->Selection())) {
            return context_.reports.refuse("It is impossible to insert the form into current selection.");
        }
        const std::string prefix = placePrefix(context_.xmlNodes, robjTVNode, baseName);
        return dropControls(robjTVNode, robjDocument, prefix, rcolFields);
    });
}

bool CNodeDropperForm::dropControls(const TreeNode& form, const word::DocumentPtr& document,
                                    const std::string& prefix, const FieldKeys* keys) {
    const ControlNodes controls = keys ? chosenControls(form, *keys) : allControls(form);
    bool dropped = false;
    std::int64_t handled = 0;
    for (const TreeNode* control : controls) {
        const FieldDropArguments arguments{.node = elementOf(context_.xmlNodes, control),
                                           .document = document,
                                           .labelRequired = true,
                                           .parentName = prefix,
                                           .treeNode = control};
        dropped |= CNodeDropperField(context_).FieldDrop(arguments);
        if (context_.reports.failed()) return false;
        // A subform is one step of the form around it.
        if (!form.Parent()) context_.progress.advance(++handled, std::ssize(controls));
    }
    return dropped;
}

}  // namespace mergeloom
