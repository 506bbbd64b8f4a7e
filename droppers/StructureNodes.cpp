#include "droppers/StructureNodes.h"

#include "base/Text.h"
#include "xml/modMSXMLHelper.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <unordered_map>

namespace mergeloom {

namespace {

constexpr const char* kDetailSection = "0";
constexpr const char* kDatasheetTag = "2";

}  // namespace

XmlNode elementOf(const XmlNodeCollection& xmlNodes, const TreeNode* node) {
    return node ? xmlNodes.numbered(node->keyNumber()) : XmlNode{};
}

bool isSubform(const XmlNode& element) {
    return controlTypeOf(GetAttributeValue(element, Attribute::ControlType)) == ControlType::Subform;
}

bool isBoundSubform(const XmlNode& subform) {
    return IsBoundToRecords(subform.firstChild());
}

std::string enclosingSubformName(const XmlNodeCollection& xmlNodes, const TreeNode& control) {
    const XmlNode parent = elementOf(xmlNodes, control.Parent());
    return parent && isSubform(parent) ? GetAttributeValue(parent, Attribute::Name) : "";
}

std::string placePrefix(const XmlNodeCollection& xmlNodes, const TreeNode& node, const std::string& name) {
    const XmlNode element = elementOf(xmlNodes, &node);
    return structureElementOf(element.nodeName()) == StructureElement::Control ? name : "";
}

bool isInDetailSection(const TreeNode& control) {
    return control.Tag() == kDetailSection;
}

bool isTableField(const TreeNode& control) {
    return isInDetailSection(control) && control.Parent() && control.Parent()->Tag() == kDatasheetTag;
}

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
