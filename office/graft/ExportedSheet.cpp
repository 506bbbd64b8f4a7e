#include "office/graft/ExportedSheet.h"

#include "office/graft/BookRules.h"
#include "office/opc/PartName.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace mergeloom::graft {

namespace {

/// Relationships that are not compared as sections: their targets are read separately, or elements of the
/// sheet refer to them by id.
constexpr std::array<std::string_view, 3> kReadElsewhere{"drawing", "vmlDrawing", "hyperlink"};

constexpr std::array<std::string_view, 8> kNoSections{
    "dimension", "sheetViews", "sheetData", "cols", "drawing", "legacyDrawing", "mergeCells", "hyperlinks"};

/// The order of these elements' children differs between exports.
bool hasSortedContent(std::string_view section) {
    return section == "dataValidations" || section == "conditionalFormatting";
}

int numberOf(std::string_view text) {
    int number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

bool isOn(pugi::xml_node node, const char* name) {
    return node.attribute(name).as_bool();
}

/// Returns the outline level of a row or column, followed by a mark if the group is collapsed, or an empty
/// text outside of groups.
std::string outlineOf(pugi::xml_node node) {
    const int level = node.attribute("outlineLevel").as_int();
    return (level == 0 ? "" : std::to_string(level)) + (isOn(node, "collapsed") ? " collapsed" : "");
}

/// Returns the settings of a view that the user changes deliberately, such as frozen rows and columns. The
/// position and the selection are ignored.
std::string viewOf(pugi::xml_node sheet) {
    const pugi::xml_node view = sheet.child("sheetViews").child("sheetView");
    std::string text;
    for (const char* name :
         {"showFormulas", "showGridLines", "showRowColHeaders", "showZeros", "rightToLeft"})
        text.append(view.attribute(name).value()).append(" ");
    const pugi::xml_node pane = view.child("pane");
    if (std::string_view(pane.attribute("state").value()) != "frozen") return text;
    return text + pane.attribute("xSplit").value() + " " + pane.attribute("ySplit").value();
}

/// Replaces the indices of differential formats by the formats themselves.
void resolveFormats(pugi::xml_node node, const ExportedFormats& formats) {
    if (pugi::xml_attribute index = node.attribute("dxfId"))
        index.set_value(formats.differential(index.as_uint()).c_str());
    for (const pugi::xml_node child : node.children())
        resolveFormats(child, formats);
}

/// Returns the canonical forms of the elements in a list, sorted.
std::string sortedChildren(pugi::xml_node list, const CanonicalXml& canonical) {
    std::vector<std::string> all;
    for (const pugi::xml_node child : list.children())
        all.push_back(canonical.of(child));
    std::ranges::sort(all);
    std::string text;
    for (const std::string& each : all)
        text += each;
    return text;
}

std::string_view textIn(pugi::xml_node element) {
    return element.child_value();
}

}  // namespace

ExportedTexts::ExportedTexts(opc::Package& package, FormatNumbers& numbers) {
    const std::string name = package.relatedPart(package.mainPart(), "sharedStrings");
    if (name.empty()) return;
    part_ = opc::XmlPart::parse(package.readPart(name), name, package.fileName());
    for (const pugi::xml_node node : part_->root().children("si"))
        items_.push_back({node, numbers.of(plainXml().of(node))});
}

ExportedTexts::Item ExportedTexts::at(std::size_t index) const {
    return index < items_.size() ? items_[index] : Item();
}

bool haveSameContent(const ExportedCell* a, const ExportedCell* b) {
    const bool isNothing = a == nullptr || a->isEmpty();
    const bool isNothingNow = b == nullptr || b->isEmpty();
    if (isNothing || isNothingNow) return isNothing == isNothingNow;
    if (a->hasFormula() || b->hasFormula()) {
        const auto attribute = [](const ExportedCell& cell, const char* name) {
            return std::string_view(cell.formulaNode.attribute(name).value());
        };
        return a->hasFormula() && b->hasFormula() && a->formula == b->formula &&
               attribute(*a, "t") == attribute(*b, "t") && attribute(*a, "ref") == attribute(*b, "ref");
    }
    return a->type == b->type && a->value == b->value && a->textNumber == b->textNumber;
}

ExportedSheet::ExportedSheet(std::string name, opc::Package& package, const std::string& partName,
                             const ExportedTexts& texts, const ExportedFormats& formats)
    : name_(std::move(name)),
      part_(opc::XmlPart::parse(package.readPart(partName), partName, package.fileName())) {
    const pugi::xml_node root = part_->root();
    readColumns(root.child("cols"));
    for (const pugi::xml_node row : root.child("sheetData").children("row"))
        readRow(row, texts);
    for (const pugi::xml_node merge : root.child("mergeCells").children())
        merges.insert(merge.attribute("ref").value());
    defaultHeight = root.child("sheetFormatPr").attribute("defaultRowHeight").as_double();
    readSections(package, partName, formats);
    readLinks(package.relationshipsOf(partName));
    readTargets(package, partName);
}

void ExportedSheet::readSections(opc::Package& package, const std::string& partName,
                                 const ExportedFormats& formats) {
    sections["view"] = viewOf(part_->root());
    const CanonicalXml canonical(bookRules(), contentsOf(package, partName, bookRules()));
    for (const pugi::xml_node child : part_->root().children()) {
        const std::string_view name = child.name();
        if (std::ranges::find(kNoSections, name) != kNoSections.end()) continue;
        resolveFormats(child, formats);
        // Several elements may have the same name.
        const std::string area = child.attribute("sqref").value();
        sections[child.name()] +=
            area + (hasSortedContent(name) ? sortedChildren(child, canonical) : canonical.of(child));
    }
}

void ExportedSheet::readLinks(const opc::Relationships& relationships) {
    for (const pugi::xml_node node : part_->root().child("hyperlinks").children("hyperlink")) {
        const opc::Relationship* const target = relationships.find(node.attribute("r:id").value());
        links[node.attribute("ref").value()] = {target == nullptr ? "" : target->target,
                                                node.attribute("location").value()};
    }
}

void ExportedSheet::readTargets(opc::Package& package, const std::string& partName) {
    const opc::Relationships& relationships = package.relationshipsOf(partName);
    for (const opc::Relationship& relationship : std::vector(relationships.all())) {
        const std::string type = sectionOfType(relationship.type);
        if (relationship.mode == opc::TargetMode::External) continue;
        const std::string target = relationships.targetPart(relationship);
        if (type == "drawing") readDrawing(package, target);
        if (type == "vmlDrawing") readBoxes(package, target);
        if (std::ranges::find(kReadElsewhere, type) == kReadElsewhere.end())
            sections[type] += contentOf(package, target, bookRules());
    }
}

void ExportedSheet::readDrawing(opc::Package& package, const std::string& partName) {
    drawing_ = opc::XmlPart::parse(package.readPart(partName), partName, package.fileName());
    const CanonicalXml canonical(bookRules(), contentsOf(package, partName, bookRules()));
    for (const pugi::xml_node anchor : drawing_->root().children()) {
        anchors_.push_back(anchor);
        objects.push_back(canonical.of(anchor));
        places.push_back(placeOf(anchor));
    }
}

void ExportedSheet::readBoxes(opc::Package& package, const std::string& partName) {
    std::string& section = sections["vmlDrawing"];
    section += contentOf(package, partName, bookRules());
    const auto part = opc::XmlPart::parse(package.readPart(partName), partName, package.fileName());
    for (const pugi::xml_node shape : part->root().children("v:shape")) {
        boxes.push_back(placeOfBox(shape));
        const std::string_view style = shape.attribute("style").value();
        section += style.find("visibility:hidden") == std::string_view::npos ? " shown" : " hidden";
    }
}

void ExportedSheet::readColumns(pugi::xml_node list) {
    for (const pugi::xml_node node : list.children("col")) {
        columns.push_back({node.attribute("min").as_int(), node.attribute("max").as_int(),
                           node.attribute("width").value(), isOn(node, "hidden"),
                           node.attribute("style").as_int(), outlineOf(node)});
    }
}

void ExportedSheet::readRow(pugi::xml_node node, const ExportedTexts& texts) {
    ExportedRow& row = rows[node.attribute("r").as_int()];
    row.anyHeight = node.attribute("ht").value();
    if (isOn(node, "customHeight")) row.height = row.anyHeight;
    row.hidden = isOn(node, "hidden");
    if (isOn(node, "customFormat")) row.style = node.attribute("s").as_int();
    row.outline = outlineOf(node);
    for (const pugi::xml_node cell : node.children("c"))
        readCell(cell, texts);
}

void ExportedSheet::readCell(pugi::xml_node node, const ExportedTexts& texts) {
    const auto place = excel::parseCell(node.attribute("r").value());
    if (!place) return;
    ExportedCell& cell = cells.emplace_back();
    cell.place = *place;
    cell.style = node.attribute("s").as_int();
    const pugi::xml_node value = node.child("v");
    cell.formulaNode = node.child("f");
    cell.formula = textIn(cell.formulaNode);
    if (!value && !cell.formulaNode) return;
    cell.type = node.attribute("t") ? node.attribute("t").value() : "n";
    cell.value = textIn(value);
    if (const auto area = excel::parseArea(cell.formulaNode.attribute("ref").value());
        area && area->first != area->last)
        arrays.push_back(*area);
    if (cell.type != "s") return;
    const ExportedTexts::Item text = texts.at(static_cast<std::size_t>(numberOf(cell.value)));
    cell.text = text.node;
    cell.textNumber = text.number;
    cell.value = {};
}

const ExportedCell* ExportedSheet::cellAt(const excel::CellPosition& place) const {
    const auto found = std::ranges::lower_bound(cells, place, {}, &ExportedCell::place);
    return found == cells.end() || found->place != place ? nullptr : &*found;
}

const ExportedColumns* ExportedSheet::columnAt(int column) const {
    const auto found = std::ranges::lower_bound(columns, column, {}, &ExportedColumns::last);
    return found == columns.end() || found->first > column ? nullptr : &*found;
}

int ExportedSheet::styleAt(const excel::CellPosition& place) const {
    if (const ExportedCell* const cell = cellAt(place)) return cell->style;
    const auto row = rows.find(place.row);
    if (row != rows.end() && row->second.style) return *row->second.style;
    const ExportedColumns* const column = columnAt(place.column);
    return column == nullptr ? 0 : column->style;
}

bool ExportedSheet::isArrayResult(const excel::CellPosition& place) const {
    return std::ranges::any_of(
        arrays, [&](const excel::CellArea& area) { return area.first != place && area.contains(place); });
}

}  // namespace mergeloom::graft
