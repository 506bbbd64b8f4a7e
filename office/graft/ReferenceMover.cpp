#include "office/graft/ReferenceMover.h"

#include "office/embedded/sheet/TreeEdit.h"
#include "office/graft/Refusal.h"
#include "office/opc/XmlPart.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <vector>

namespace mergeloom::graft {

namespace {

constexpr std::array<std::string_view, 11> kFormulas{"f",
                                                     "formula",
                                                     "formula1",
                                                     "formula2",
                                                     "calculatedColumnFormula",
                                                     "totalsRowFormula",
                                                     "definedName",
                                                     "FmlaLink",
                                                     "FmlaRange",
                                                     "FmlaPict",
                                                     "FmlaTxbx"};

/// Attributes of shapes and controls that contain a formula.
constexpr std::array<std::string_view, 6> kFormulaAttributes{"textlink", "fmlaLink",   "fmlaRange",
                                                             "fmlaTxbx", "linkedCell", "listFillRange"};

/// Elements that are moved by other rules, or that contain the user's place.
constexpr std::array<std::string_view, 3> kMovedApart{"sheetViews", "sheetData", "definedNames"};

/// Elements with one cell in the attribute r.
constexpr std::array<std::string_view, 2> kWithCell{"inputCells", "cellWatch"};

/// Elements without which the one around them is not valid.
constexpr std::array<std::string_view, 2> kNeeded{"sqref", "sparklines"};

/// The numbers of rows and columns in the anchor of a note (ECMA-376 Part 4, 19.4.2.1).
constexpr std::array<std::size_t, 2> kRowsOfAnchor{2, 6};
constexpr std::array<std::size_t, 2> kColumnsOfAnchor{0, 4};

template <std::size_t count>
bool contains(const std::array<std::string_view, count>& names, std::string_view name) {
    return std::ranges::find(names, name) != names.end();
}

bool isElementNode(pugi::xml_node node) {
    return node.type() == pugi::node_element;
}

/// Returns true for an element whose text is a formula. In charts, sqref has the name of a sheet, too.
bool isFormula(pugi::xml_node node, std::string_view name) {
    if (std::ranges::any_of(node.children(), isElementNode)) return false;
    return contains(kFormulas, name) ||
           (name == "sqref" && std::string_view(node.text().get()).find('!') != std::string_view::npos);
}

/// Corrects the attributes with the number of an element's children.
void countChildren(pugi::xml_node node) {
    const auto children = node.children();
    const auto isManual = [](pugi::xml_node child) { return child.attribute("man").as_bool(); };
    if (pugi::xml_attribute count = node.attribute("count"))
        count.set_value(static_cast<long long>(std::ranges::count_if(children, isElementNode)));
    if (pugi::xml_attribute count = node.attribute("manualBreakCount"))
        count.set_value(static_cast<long long>(std::ranges::count_if(children, isManual)));
}

std::vector<std::string> split(const std::string& text, char separator) {
    std::vector<std::string> pieces(1);
    for (const char each : text)
        each == separator ? void(pieces.emplace_back()) : pieces.back().push_back(each);
    return pieces;
}

std::string join(const std::vector<std::string>& pieces, const char* separator) {
    std::string text;
    for (const std::string& piece : pieces)
        text += (text.empty() ? "" : separator) + piece;
    return text;
}

}  // namespace

void ReferenceMover::moveFormula(pugi::xml_node node, bool isOfSheet) {
    setText(node, shift_.formula(node.text().get(), sheet_, isOfSheet));
}

/// Returns false if the element refers to no cell any more.
bool ReferenceMover::move(pugi::xml_node node, bool isOfSheet) {
    const std::string_view name = opc::localName(node);
    if (contains(kMovedApart, name)) return true;
    if (isFormula(node, name)) {
        moveFormula(node, isOfSheet);
        return true;
    }
    for (const pugi::xml_attribute attribute : node.attributes())
        if (contains(kFormulaAttributes, attribute.name()))
            set(attribute, shift_.formula(attribute.value(), sheet_, isOfSheet));
    if (isOfSheet && !moveReferences(node, name)) return false;
    return moveChildren(node, isOfSheet);
}

/// Returns false if the element lost all its children, or one that it needs.
bool ReferenceMover::moveChildren(pugi::xml_node node, bool isOfSheet) {
    bool hasLost = false;
    for (pugi::xml_node child = node.first_child(); child;) {
        const pugi::xml_node next = child.next_sibling();
        if (isElementNode(child) && !move(child, isOfSheet)) {
            if (contains(kNeeded, opc::localName(child))) return false;
            if (opc::localName(child) == "comment")
                throw Refusal("rows or columns with a comment were removed", sheet_);
            node.remove_child(child);
            isChanged_ = hasLost = true;
        }
        child = next;
    }
    if (hasLost) countChildren(node);
    return !hasLost || std::ranges::any_of(node.children(), isElementNode);
}

/// Returns false if the element refers to no cell any more.
bool ReferenceMover::moveReferences(pugi::xml_node node, std::string_view name) {
    if (!moveAreas(node, name)) return false;
    if (contains(kWithCell, name)) return moveCell(node);
    if (name == "brk") return moveBreak(node);
    if (name == "col" && opc::localName(node.parent()) == "cols") return moveColumns(node);
    if (name == "from") moveAnchor(node);
    if (name == "Anchor") moveNote(node);
    if (name == (shift_.axis == Axis::Rows ? "Row" : "Column"))
        setText(node, std::to_string(movedFromZero(node.text().as_int())));
    return true;
}

bool ReferenceMover::moveAreas(pugi::xml_node node, std::string_view name) {
    for (const char* attribute : {"ref", "sqref"}) {
        const pugi::xml_attribute areas = node.attribute(attribute);
        if (!areas) continue;
        const std::string now = shift_.areas(areas.value());
        if (now.empty()) return false;
        set(areas, now);
    }
    if (name != "sqref") return true;
    const std::string now = shift_.areas(node.text().get());
    setText(node, now);
    return !now.empty();
}

bool ReferenceMover::moveCell(pugi::xml_node node) {
    const auto cell = excel::parseCell(node.attribute("r").value());
    const auto now = cell ? shift_.cell(*cell) : std::nullopt;
    if (now) set(node.attribute("r"), excel::addressOf(*now));
    return now.has_value();
}

/// A break is above the row, or on the left of the column, after its number.
bool ReferenceMover::moveBreak(pugi::xml_node node) {
    const bool isOfAxis = (opc::localName(node.parent()) == "rowBreaks") == (shift_.axis == Axis::Rows);
    if (!isOfAxis) return true;
    const std::optional<int> line = shift_.line(node.attribute("id").as_int() + 1);
    if (line) set(node.attribute("id"), std::to_string(*line - 1));
    return line.has_value();
}

/// New columns look as the one on their left.
bool ReferenceMover::moveColumns(pugi::xml_node node) {
    if (shift_.axis == Axis::Rows) return true;
    const int first = node.attribute("min").as_int();
    const int last = node.attribute("max").as_int();
    const auto area = shift_.area({{1, first}, {1, last}});
    if (!area) return false;
    const bool grows = shift_.count > 0 && last + 1 == shift_.at;
    set(node.attribute("min"), std::to_string(area->first.column));
    set(node.attribute("max"), std::to_string(area->last.column + (grows ? shift_.count : 0)));
    return true;
}

/// Moves the corners of an object on the sheet, which are counted from 0.
void ReferenceMover::moveAnchor(pugi::xml_node from) {
    const std::string_view edit = from.parent().attribute("editAs").value();
    if (edit == "absolute") return;
    const char* const wanted = shift_.axis == Axis::Rows ? "row" : "col";
    const pugi::xml_node first = embedded::childNamed(from, wanted);
    const pugi::xml_node last = embedded::childNamed(embedded::childNamed(from.parent(), "to"), wanted);
    const int former = first.text().as_int();
    const int now = movedFromZero(former);
    setText(first, std::to_string(now));
    if (!last) return;
    const int end = last.text().as_int();
    setText(last, std::to_string(edit == "oneCell" ? end + now - former : movedFromZero(end)));
}

void ReferenceMover::moveNote(pugi::xml_node node) {
    const auto& wanted = shift_.axis == Axis::Rows ? kRowsOfAnchor : kColumnsOfAnchor;
    std::vector<std::string> numbers = split(node.text().get(), ',');
    for (const std::size_t index : wanted)
        if (index < numbers.size())
            numbers[index] = " " + std::to_string(movedFromZero(std::atoi(numbers[index].c_str())));
    setText(node, join(numbers, ","));
}

int ReferenceMover::movedFromZero(int line) const {
    return shift_.line(line + 1).value_or(shift_.at) - 1;
}

void ReferenceMover::set(pugi::xml_attribute attribute, const std::string& value) {
    if (value == attribute.value()) return;
    attribute.set_value(value.c_str());
    isChanged_ = true;
}

void ReferenceMover::setText(pugi::xml_node node, const std::string& text) {
    if (!node || text == node.text().get()) return;
    node.text().set(text.c_str());
    isChanged_ = true;
}

}  // namespace mergeloom::graft
