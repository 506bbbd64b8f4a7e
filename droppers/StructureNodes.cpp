#include "droppers/StructureNodes.h"

#include "xml/modMSXMLHelper.h"

namespace mergeloom {

namespace {

constexpr const char* kDetailSection = "0";
constexpr const char* kDatasheetTag = "2";

}  // namespace

XmlNode elementOf(const XmlNodeCollection& xmlNodes, const TreeNode* node) {
    return node ? xmlNodes.Item(node->Key()) : XmlNode{};
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

}  // namespace mergeloom
