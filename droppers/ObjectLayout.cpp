#include "droppers/ObjectLayout.h"

#include "droppers/StructureNodes.h"
#include "xml/modMSXMLHelper.h"
#include "xml/modNamedItems.h"

#include <cstdint>

namespace mergeloom {

namespace {

std::int32_t numberOf(const XmlNode& element, Attribute attribute) {
    return GetWholeNumber(element, attribute).value_or(0);
}

std::string viewName(std::int32_t view) {
    const bool isListed =
        view >= static_cast<std::int32_t>(View::Design) && view <= static_cast<std::int32_t>(View::Layout);
    return isListed ? ViewName(view) : std::to_string(view);
}

ObjectLayout layoutOfForm(DropReports& reports, const XmlNode& object) {
    const auto defaultView = static_cast<DefaultView>(numberOf(object, Attribute::DefaultView));
    if (defaultView != DefaultView::ContinuousForm) return ObjectLayout::Form;
    return reports.ask("Present Data in the Table Form?") ? ObjectLayout::Table : ObjectLayout::Form;
}

ObjectLayout layoutByView(DropReports& reports, const XmlNode& object) {
    const std::int32_t view = numberOf(object, Attribute::CurrentView);
    if (static_cast<View>(view) == View::Datasheet) return ObjectLayout::Table;
    if (static_cast<View>(view) == View::Form) return layoutOfForm(reports, object);
    reports.refuse("Support for " + viewName(view) + " view is not realised yet.", MessageIcon::None);
    return ObjectLayout::None;
}

/// Returns false for a tab control, which only holds others.
bool canBeDropped(const XmlNode& element) {
    return structureElementOf(element.nodeName()) == StructureElement::Control &&
           controlTypeOf(GetAttributeValue(element, Attribute::ControlType)) != ControlType::TabControl;
}

/// Recursion is safe, since the loader rejects deeply nested documents.
int controlElements(const XmlNode& element) {
    int count = 0;
    for (XmlNode child = element.firstChild(); child; child = child.nextSibling()) {
        count += canBeDropped(child) ? 1 : 0;
        count += controlElements(child);
    }
    return count;
}

std::string nameOf(const XmlNode& element, const TreeNode& node) {
    return isSubform(element) ? "Subform \"" + node.Text() + '"' : node.Text();
}

std::string noControls(const XmlNode& element, const std::string& object) {
    const int count = controlElements(element);
    if (count == 0) return "no Control element was found in " + object + ".";
    const std::string subject =
        count == 1 ? "the only Control element in " + object + " has"
                   : "all " + std::to_string(count) + " Control elements in " + object + " have";
    return subject + " an empty caption, or no attribute that is spelt \"Caption\" or \"Name\".";
}

std::string noFields(const std::string& object) {
    return "no field was found in the detail section of " + object + " that can be a column of a table.";
}

std::string noLabels(const std::string& object) {
    return "only subforms were found in " + object + ", which no label can hold.";
}

std::string noPlaces(const std::string& object) {
    return "only subforms were found in " + object + ", and no control in them that can be dropped.";
}

std::string noView(const XmlNode& element, const std::string& object) {
    if (element.namedAttribute(AttributeName(Attribute::CurrentView).c_str())) return {};
    return object + " has no attribute that is spelt \"CurrentView\", which decides the layout.";
}

std::string reason(const DropContext& context, const TreeNode& node, ObjectLayout layout) {
    const XmlNode element = elementOf(context.xmlNodes, &node);
    const std::string object = nameOf(element, node);
    const bool becomesLabels = context.settings.documentType == DocumentType::LabelDocument;
    if (layout == ObjectLayout::None && !becomesLabels) return noView(element, object);
    if (!node.Child()) return noControls(element, object);
    if (becomesLabels) return noLabels(object);
    if (layout == ObjectLayout::Form) return noPlaces(object);
    return fieldsOf(context.xmlNodes, node).empty() ? noFields(object) : "";
}

}  // namespace

ObjectLayout layoutOf(DropContext& context, const XmlNode& object) {
    switch (context.settings.documentType) {
        case DocumentType::Table:
            return ObjectLayout::Table;
        case DocumentType::Form:
            return ObjectLayout::Form;
        default:
            return layoutByView(context.reports, object);
    }
}

ObjectLayout layoutOfSubform(const XmlNode& control) {
    if (!isSubform(control)) return ObjectLayout::None;
    return isBoundSubform(control) ? ObjectLayout::Table : ObjectLayout::Form;
}

std::string viewNameOf(const XmlNode& object) {
    if (GetAttributeValue(object, Attribute::CurrentView).empty()) return {};
    return viewName(numberOf(object, Attribute::CurrentView));
}

std::string nothingToDrop(const DropContext& context, const TreeNode& node, ObjectLayout layout) {
    const std::string text = reason(context, node, layout);
    return text.empty() ? "" : "Nothing was dropped: " + text;
}

}  // namespace mergeloom
