#include "droppers/ControlNodes.h"

#include "base/Text.h"
#include "droppers/StructureNodes.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <unordered_map>

namespace mergeloom {

ControlNodes allControls(const TreeNode& object) {
    ControlNodes controls;
    for (const TreeNode* child = object.Child(); child; child = child->Next())
        controls.push_back(child);
    return controls;
}

ControlNodes chosenControls(const TreeNode& object, const FieldKeys& keys) {
    std::unordered_map<std::string, const TreeNode*> byKey;
    for (const TreeNode* control : allControls(object))
        byKey.emplace(foldCase(control->Key()), control);

    ControlNodes controls;
    for (const std::string& key : keys) {
        const auto found = byKey.find(foldCase(key));
        if (found != byKey.end()) controls.push_back(found->second);
    }
    return controls;
}

ControlNodes fieldsOf(const XmlNodeCollection& xmlNodes, const TreeNode& object) {
    const ControlNodes all = allControls(object);
    ControlNodes fields;
    std::ranges::copy_if(all, std::back_inserter(fields), [&](const TreeNode* control) {
        return isInDetailSection(*control) && !isSubform(elementOf(xmlNodes, control));
    });
    return fields;
}

}  // namespace mergeloom
