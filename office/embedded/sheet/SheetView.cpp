#include "office/embedded/sheet/SheetView.h"

#include "office/embedded/sheet/TreeEdit.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace mergeloom::embedded {

namespace {

constexpr const char* kViewsSection = "sheetViews";
constexpr const char* kFirstPane = "topLeft";

/// Returns the view in the workbook's first window.
pugi::xml_node viewOf(pugi::xml_node views) {
    const std::string name = qualifiedName(views, "sheetView");
    const pugi::xml_node found = views.find_child_by_attribute(name.c_str(), "workbookViewId", "0");
    return found ? found : views.child(name.c_str());
}

std::string paneOf(pugi::xml_node element, const char* attribute) {
    return element.attribute(attribute).as_string(kFirstPane);
}

/// Returns the selection of the pane that has the focus.
pugi::xml_node selectionOf(pugi::xml_node view) {
    const std::string active = paneOf(childNamed(view, "pane"), "activePane");
    for (const pugi::xml_node selection : childrenNamed(view, "selection")) {
        if (paneOf(selection, "pane") == active) return selection;
    }
    return {};
}

excel::CellSelection parseSelection(pugi::xml_node element) {
    std::vector<excel::CellArea> areas = excel::parseAreas(element.attribute("sqref").value());
    const excel::CellPosition first = areas.empty() ? excel::CellPosition() : areas.front().first;
    const pugi::xml_attribute written = element.attribute("activeCell");
    const excel::CellPosition active =
        excel::parseCell(written.value()).value_or(written ? excel::CellPosition() : first);
    const auto holdsActive = [&](const excel::CellArea& area) { return area.contains(active); };
    if (std::ranges::none_of(areas, holdsActive)) areas = {{active, active}};
    return {active, std::move(areas)};
}

/// Writes both corners also for whole rows and columns, as Excel does in a selection.
std::string addressesOf(const std::vector<excel::CellArea>& areas) {
    std::string addresses;
    for (const excel::CellArea& area : areas) {
        if (!addresses.empty()) addresses += ' ';
        addresses += addressOf(area.first);
        if (area.first != area.last) addresses += ":" + addressOf(area.last);
    }
    return addresses;
}

/// Returns the number of the area that contains the active cell.
std::size_t activeArea(const excel::CellSelection& selection) {
    const auto holdsActive = [&](const excel::CellArea& area) { return area.contains(selection.activeCell); };
    const auto found = std::ranges::find_if(selection.areas, holdsActive);
    return found == selection.areas.end() ? 0 : static_cast<std::size_t>(found - selection.areas.begin());
}

void set(pugi::xml_node element, const char* name, const std::string& value) {
    pugi::xml_attribute attribute = element.attribute(name);
    if (!attribute) attribute = element.append_attribute(name);
    attribute.set_value(value.c_str());
}

/// Adds a selection for the pane with the focus to a view that has none: after the pane and the selections of
/// other panes (ECMA-376 Part 1, A.2, CT_SheetView).
pugi::xml_node addSelection(pugi::xml_node view) {
    const std::string name = qualifiedName(view, "selection");
    const pugi::xml_node pane = childNamed(view, "pane");
    pugi::xml_node last = pane;
    for (const pugi::xml_node other : view.children(name.c_str()))
        last = other;
    pugi::xml_node added =
        last ? view.insert_child_after(name.c_str(), last) : view.prepend_child(name.c_str());
    const std::string active = paneOf(pane, "activePane");
    if (active != kFirstPane) set(added, "pane", active);
    return added;
}

void write(pugi::xml_node element, const excel::CellSelection& selection) {
    const std::size_t area = activeArea(selection);
    set(element, "activeCell", addressOf(selection.activeCell));
    if (area > 0 || element.attribute("activeCellId")) set(element, "activeCellId", std::to_string(area));
    set(element, "sqref", addressesOf(selection.areas));
}

std::string newViews(const SheetPart& sheet) {
    const std::string views = sheet.elementName(kViewsSection);
    return "<" + views + "><" + sheet.elementName("sheetView") + " workbookViewId=\"0\"/></" + views + ">";
}

/// Changes the view in the workbook's first window; creates it if the sheet has none.
template <typename Change>
void changeView(SheetPart& sheet, const Change& change) {
    if (!viewOf(SheetSection(sheet, kViewsSection).root())) sheet.setSection(kViewsSection, newViews(sheet));
    const SheetSection section(sheet, kViewsSection);
    change(viewOf(section.root()));
    sheet.setSection(kViewsSection, section.toXml());
}

}  // namespace

excel::CellSelection readSelection(const SheetPart& sheet) {
    const SheetSection section(sheet, kViewsSection);
    return parseSelection(selectionOf(viewOf(section.root())));
}

void writeSelection(SheetPart& sheet, const excel::CellSelection& selection) {
    if (readSelection(sheet) == selection) return;
    changeView(sheet, [&](pugi::xml_node view) {
        const pugi::xml_node known = selectionOf(view);
        write(known ? known : addSelection(view), selection);
    });
}

bool isTabSelected(const SheetPart& sheet) {
    const SheetSection section(sheet, kViewsSection);
    return viewOf(section.root()).attribute("tabSelected").as_bool();
}

void setTabSelected(SheetPart& sheet, bool selected) {
    if (isTabSelected(sheet) == selected) return;
    changeView(sheet, [&](pugi::xml_node view) { set(view, "tabSelected", selected ? "1" : "0"); });
}

SheetProtection readProtection(const SheetPart& sheet) {
    const SheetSection section(sheet, "sheetProtection");
    const pugi::xml_node protection = section.root();
    // In a protected sheet, everything but its objects is locked unless an attribute says otherwise.
    const bool contents = protection.attribute("sheet").as_bool();
    const auto locks = [&](const char* attribute) {
        return contents && protection.attribute(attribute).as_bool(true);
    };
    return {contents, protection.attribute("objects").as_bool(), locks("formatColumns"), locks("formatRows")};
}

}  // namespace mergeloom::embedded
