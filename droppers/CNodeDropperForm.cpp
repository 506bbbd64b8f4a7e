#include "droppers/CNodeDropperForm.h"

#include "base/Text.h"
#include "droppers/CNodeDropperField.h"
#include "droppers/SelectionCheck.h"
#include "droppers/StructureNodes.h"
#include "office/model/word/Application.h"

#include <unordered_map>
#include <vector>

namespace mergeloom {

namespace {

using Controls = std::vector<const TreeNode*>;

Controls allControls(const TreeNode& form) {
    Controls controls;
    for (const TreeNode* child = form.Child(); child; child = child->Next())
        controls.push_back(child);
    return controls;
}

/// The form's controls that the keys name, in the keys' order.
Controls chosenControls(const TreeNode& form, const FieldKeys& keys) {
    std::unordered_map<std::string, const TreeNode*> byKey;
    for (const TreeNode* control : allControls(form))
        byKey.emplace(foldCase(control->Key()), control);

    Controls controls;
    for (const std::string& key : keys) {
        const auto found = byKey.find(foldCase(key));
        if (found != byKey.end()) controls.push_back(found->second);
    }
    return controls;
}

}  // namespace

bool CNodeDropperForm::FormDrop(const TreeNode& robjTVNode, const word::DocumentPtr& robjDocument,
                                const std::string& baseName, const FieldKeys* rcolFields) {
    return context_.reports.trap({"CNodeDropperForm", "FormDrop"}, [&] {
        if (!robjTVNode.Child()) return false;
        if (!takesCompositeDrop(*robjDocument->Application()->Selection())) {
            return context_.reports.refuse("It is impossible to insert the form into current selection.");
        }
        const bool isOwnForm = !isSubform(elementOf(context_.xmlNodes, &robjTVNode));
        return dropControls(robjTVNode, robjDocument, isOwnForm ? "" : baseName, rcolFields);
    });
}

bool CNodeDropperForm::dropControls(const TreeNode& form, const word::DocumentPtr& document,
                                    const std::string& prefix, const FieldKeys* keys) {
    const Controls controls = keys ? chosenControls(form, *keys) : allControls(form);
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
