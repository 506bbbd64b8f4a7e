#include "xml/CXML2TreeView.h"

#include "base/ErrorHandler.h"
#include "base/Text.h"
#include "xml/modMSXMLHelper.h"
#include "xml/modNamedItems.h"

#include <algorithm>
#include <optional>
#include <pugixml.hpp>

namespace mergeloom {

namespace {

/// Returns the name as a search for it would write it into its expression.
std::string searchedName(std::string_view name) {
    const bool bothQuotes =
        name.find('\'') != std::string_view::npos && name.find('"') != std::string_view::npos;
    return bothQuotes ? replaceAll(name, "\"", "") : std::string(name);
}

constexpr const char* kClass = "CXML2TreeView";
constexpr ErrorNumber kTypeMismatch = 13;

constexpr int kFormState = 1;
constexpr int kDatasheetState = 2;
constexpr const char* kFormImage = "Form";
constexpr const char* kDatasheetImage = "Datasheet";

/// The tag of a control without a section: the number of the detail section.
constexpr const char* kDetailSection = "0";

StructureElement kindOf(XmlNode node) {
    const bool isElement = node.nodeType() == XmlNode::Type::Element;
    return isElement ? structureElementOf(node.nodeName()) : StructureElement::Unknown;
}

bool isControl(XmlNode node) {
    return kindOf(node) == StructureElement::Control;
}

std::string objectText(XmlNode object) {
    const auto name = object.namedAttribute(AttributeName(Attribute::Name).c_str());
    const std::string element(object.nodeName());
    return name ? element + " \"" + std::string(*name) + '"' : element;
}

int objectView(XmlNode object) {
    if (const std::optional<int> number = GetWholeNumber(object, Attribute::CurrentView)) return *number;
    const auto view = object.namedAttribute(AttributeName(Attribute::CurrentView).c_str());
    if (!view) return 0;
    throw AutomationError(kTypeMismatch, "The CurrentView '" + std::string(*view) + "' of " +
                                             objectText(object) + " is no whole number.");
}

/// Returns the icon of a node without a view: that of its control type, or that of a custom control when it
/// is no known control, such as a table without a view.
std::string typeImage(const std::string& typeName) {
    const ControlType type = controlTypeOf(typeName);
    return ControlTypeName(type == ControlType::Unknown ? ControlType::CustomControl : type);
}

void markView(TreeNode& node, const std::string& typeName, int viewState, bool showIcons) {
    const bool hasView = viewState == kDatasheetState || viewState == kFormState;
    if (hasView) node.SetTag(std::to_string(viewState));
    if (!showIcons) return;
    const char* const viewImage = viewState == kDatasheetState ? kDatasheetImage : kFormImage;
    node.SetImage(hasView ? viewImage : typeImage(typeName));
}

}  // namespace

BoundValueIndex::BoundValueIndex(XmlNode data) {
    addBelow(pugi::xml_node(data.handle()));
    std::sort(byName_.begin(), byName_.end());
}

// Returns true when there is a BoundValue element below the parent. The loader rejects deeply nested
// documents.
bool BoundValueIndex::addBelow(pugi::xml_node parent) {
    bool found = false;
    for (const pugi::xml_node child : parent.children()) {
        if (child.type() != pugi::node_element) continue;
        const StructureElement element = structureElementOf(localName(child.name()));
        const bool foundBelow = element == StructureElement::Control ? addControl(child) : addBelow(child);
        found = found || foundBelow || element == StructureElement::BoundValue;
    }
    return found;
}

bool BoundValueIndex::addControl(pugi::xml_node element) {
    const auto number = static_cast<Number>(controls_.size());
    controls_.push_back({});
    bool hasName = false;
    for (const pugi::xml_attribute attribute : element.attributes()) {
        if (NamedItemIndex(NamedItemList::Attributes, localName(attribute.name())) != 0) continue;
        byName_.push_back({attribute.value(), number});
        hasName = true;
    }
    if (hasName) named_.push_back(number);

    const bool found = addBelow(element);
    controls_[number] = {static_cast<Number>(controls_.size()), found};
    return found;
}

bool BoundValueIndex::hasBoundValue(std::string_view outerName, std::string_view name) const {
    Number from = 0;
    auto end = static_cast<Number>(controls_.size());
    if (!outerName.empty()) {
        const Number outer = first(searchedName(outerName), from, end);
        if (outer == end) return false;
        from = outer + 1;
        end = controls_[outer].endBelow;
    }
    const Number control = first(searchedName(name), from, end);
    return control != end && controls_[control].hasBoundValue;
}

// Returns the first control of a name from one number to before another; the latter when there is none.
BoundValueIndex::Number BoundValueIndex::first(std::string_view name, Number from, Number end) const {
    if (name.empty()) {
        const auto found = std::lower_bound(named_.begin(), named_.end(), from);
        return found == named_.end() ? end : std::min(*found, end);
    }
    const auto found = std::lower_bound(byName_.begin(), byName_.end(), NamedControl{name, from});
    const bool same = found != byName_.end() && found->name == name;
    return same ? std::min(found->number, end) : end;
}

void CXML2TreeView::DisplayXMLNode(int parentIndex, XmlNode node, bool showIcons) {
    trap(errors_, kClass, "DisplayXMLNode", [&] {
        if (node) displayNode(parentIndex, node, showIcons);
    });
}

// Recurses through DisplayXMLNode, which is safe since the loader rejects deeply nested documents.
void CXML2TreeView::displayNode(int parentIndex, XmlNode node, bool showIcons) {
    std::string typeName;
    int viewState = 0;
    const StructureElement kind = kindOf(node);
    const std::string text = textOf(node, kind, typeName, viewState);
    TreeNode* shown = nullptr;
    if (!text.empty()) {
        shown = &addNode(parentIndex, node, text);
        markView(*shown, typeName, viewState, showIcons);
    } else if (kind == StructureElement::Control && controlTypeOf(typeName) != ControlType::TabControl) {
        leftOut_.push_back(node);
    }
    if (!node.firstChild()) {
        if (shown == nullptr || kind != StructureElement::Control) return;
        markSection(*shown, node);
        if (dropKinds_ == DropKindNodes::Shown) addDropKinds(*shown, node);
        return;
    }
    if (kind == StructureElement::Data) return;
    const int childrenParent = shown != nullptr ? shown->Index() : parentIndex;
    for (XmlNode child = node.firstChild(); child; child = child.nextSibling()) {
        DisplayXMLNode(childrenParent, child, showIcons);
    }
}

TreeNode& CXML2TreeView::addNode(int parentIndex, XmlNode node, const std::string& text) {
    return tree_.Add(parentIndex, xmlNodes_.Add(node), text);
}

void CXML2TreeView::markSection(TreeNode& controlNode, XmlNode control) {
    const auto section = control.namedAttribute(AttributeName(Attribute::Section).c_str());
    controlNode.SetTag(section.value_or(kDetailSection));
}

void CXML2TreeView::addDropKinds(TreeNode& controlNode, XmlNode control) {
    const bool picture = !document_.findPicture(GetAttributeValue(control, Attribute::Image)).empty();
    addDropKind(controlNode, DropKind::Label);
    addDropKind(controlNode, picture ? DropKind::Image : DropKind::Value);
    addDropKind(controlNode, picture ? DropKind::LabelAndImage : DropKind::LabelAndValue);

    const TreeNode* const parent = controlNode.Parent();
    const XmlNode parentElement = parent != nullptr ? xmlNodes_.Item(parent->Key()) : XmlNode();
    if (ContolHasBoundValue(control, parentElement)) addDropKind(controlNode, DropKind::BoundValue);
}

void CXML2TreeView::addDropKind(TreeNode& controlNode, DropKind kind) {
    const std::string name = DropKindName(kind);
    tree_.Add(controlNode.Index(), 0, name).SetTag(name);
}

std::string CXML2TreeView::FormatNodeString(XmlNode node, std::string& typeName, int& viewState) {
    return textOf(node, kindOf(node), typeName, viewState);
}

std::string CXML2TreeView::textOf(XmlNode node, StructureElement kind, std::string& typeName,
                                  int& viewState) {
    std::string text;
    trap(errors_, kClass, "FormatNodeString", [&] {
        switch (kind) {
            case StructureElement::Table:
            case StructureElement::Query:
            case StructureElement::Form:
                if (isControl(node.parentNode())) break;
                text = objectText(node);
                typeName = node.nodeName();
                viewState = objectView(node);
                break;
            case StructureElement::Control:
                text = controlText(node, typeName, viewState);
                break;
            default:
                break;
        }
    });
    return text;
}

std::string CXML2TreeView::controlText(XmlNode control, std::string& typeName, int& viewState) {
    std::string text = GetControlCaption(errors_, control);
    if (text.ends_with(':')) {
        text.pop_back();
        text = trimBlanks(text);
    }
    const auto type = control.namedAttribute(AttributeName(Attribute::ControlType).c_str());
    if (!type) return text;
    typeName = *type;
    const ControlType knownType = controlTypeOf(typeName);
    if (knownType == ControlType::TabControl) return {};
    if (knownType != ControlType::Subform) return text;

    const XmlNode form = control.firstChild();
    if (form.namedAttribute(AttributeName(Attribute::HasRecordset).c_str())) {
        viewState = IsBoundToRecords(form) ? kDatasheetState : kFormState;
    }
    return text;
}

bool CXML2TreeView::ContolHasBoundValue(XmlNode controlNode, XmlNode parentNode) {
    bool hasBoundValue = false;
    trap(errors_, kClass, "ContolHasBoundValue", [&] {
        if (!boundValues_) {
            boundValues_.emplace(SearchNodeNotCaseSensitive(errors_, document_.documentElement(),
                                                            StructureElementName(StructureElement::Data)));
        }
        const std::string outerName =
            isControl(parentNode) ? GetAttributeValue(parentNode, Attribute::Name) : std::string();
        hasBoundValue =
            boundValues_->hasBoundValue(outerName, GetAttributeValue(controlNode, Attribute::Name));
    });
    return hasBoundValue;
}

}  // namespace mergeloom
