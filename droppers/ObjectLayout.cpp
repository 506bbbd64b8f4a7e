#include "droppers/ObjectLayout.h"

#include "xml/modMSXMLHelper.h"

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

std::string viewNameOf(const XmlNode& object) {
    if (GetAttributeValue(object, Attribute::CurrentView).empty()) return {};
    return viewName(numberOf(object, Attribute::CurrentView));
}

}  // namespace mergeloom
