#include "libreoffice/saving/PlantedFaults.h"

#include "doubles/PackageBytes.h"
#include "office/model/excel/CellAddress.h"
#include "office/opc/Package.h"
#include "office/opc/XmlPart.h"

#include <algorithm>
#include <functional>
#include <pugixml.hpp>
#include <sstream>

namespace mergeloom {

namespace {

using Node = pugi::xml_node;
using Nodes = std::vector<Node>;

/// Returns true for content that an office does not show, or computes again.
bool isHidden(Node node) {
    static const std::vector<std::string> kHidden{"mc:Fallback", "w:del",   "w:moveFrom",
                                                  "w:fldSimple", "w:sdtPr", "w:sdt"};
    for (; node; node = node.parent())
        if (std::ranges::find(kHidden, node.name()) != kHidden.end()) return true;
    return false;
}

/// Returns the elements of a name that are shown.
Nodes shown(
    Node root, const std::string& name, const std::function<bool(Node)>& is = [](Node) { return true; }) {
    Nodes found;
    struct Walker final : pugi::xml_tree_walker {
        std::function<bool(Node&)> visit;
        bool for_each(Node& node) override { return visit(node); }
    } walker;
    walker.visit = [&](Node& node) {
        if (node.name() == name && !isHidden(node) && is(node)) found.push_back(node);
        return true;
    };
    root.traverse(walker);
    return found;
}

Node any(const Nodes& nodes, std::mt19937& chance) {
    if (nodes.empty()) return {};
    return nodes[std::uniform_int_distribution<std::size_t>(0, nodes.size() - 1)(chance)];
}

bool isLetter(char byte) {
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}

/// Changes the first letter. Returns false if there is none.
bool changeLetter(Node text) {
    std::string value = text.text().get();
    const auto letter = std::ranges::find_if(value, isLetter);
    if (letter == value.end()) return false;
    *letter = *letter == 'q' ? 'x' : 'q';
    text.text().set(value.c_str());
    return true;
}

/// Returns true for a run in the result of a field, which the office computes again.
bool isInField(Node run) {
    for (Node each = run.previous_sibling(); each; each = each.previous_sibling()) {
        const std::string type = each.child("w:fldChar").attribute("w:fldCharType").value();
        if (!type.empty()) return type != "end";
    }
    return false;
}

Node ancestor(Node node, const std::string& name) {
    while (node && node.name() != name)
        node = node.parent();
    return node;
}

bool hasLetters(Node node) {
    return std::ranges::any_of(std::string(node.text().get()), isLetter);
}

bool isShownText(Node text) {
    const Node run = text.parent();
    return hasLetters(text) && !isInField(run) && !run.child("w:rPr").child("w:vanish") &&
           !ancestor(run, "w:txbxContent");
}

Node endOf(Node root, Node start) {
    const std::string id = start.attribute("w:id").value();
    const Nodes ends =
        shown(root, "w:bookmarkEnd", [&](Node end) { return end.attribute("w:id").value() == id; });
    return ends.empty() ? Node() : ends.front();
}

Nodes places(Node root) {
    return shown(root, "w:bookmarkStart",
                 [](Node start) { return start.attribute("w:name").value()[0] != '_'; });
}

bool losePlace(Node root, std::mt19937& chance) {
    const Node start = any(places(root), chance);
    const Node end = endOf(root, start);
    if (!start || !end) return false;
    end.parent().remove_child(end);
    return start.parent().remove_child(start);
}

/// Moves the start of a place after the first run in it, or before the run that precedes it.
bool shiftPlace(Node root, std::mt19937& chance) {
    Nodes starts = places(root);
    std::ranges::shuffle(starts, chance);
    for (Node start : starts) {
        const Node next = start.next_sibling();
        if (next.name() != std::string("w:r") || !hasLetters(next.child("w:t")) || isInField(next)) continue;
        next.parent().insert_move_after(start, next);
        return true;
    }
    return false;
}

/// Removes bold from a run, or makes one bold if none is.
bool changeBold(Node root, std::mt19937& chance) {
    const Nodes texts = shown(root, "w:t", isShownText);
    Nodes bold;
    std::ranges::copy_if(texts, std::back_inserter(bold),
                         [](Node text) { return text.parent().child("w:rPr").child("w:b"); });
    if (const Node text = any(bold, chance)) return text.parent().child("w:rPr").remove_child("w:b");
    Node run = any(texts, chance).parent();
    if (!run) return false;
    Node properties = run.child("w:rPr");
    if (!properties) properties = run.prepend_child("w:rPr");
    const Node style = properties.child("w:rStyle");
    const Node fonts = properties.child("w:rFonts");
    const Node before = fonts ? fonts : style;
    return before ? properties.insert_child_after("w:b", before) : properties.prepend_child("w:b");
}

bool loseParagraph(Node root, std::mt19937& chance) {
    const Nodes paragraphs = shown(root, "w:p", [](Node each) {
        const std::string around = each.parent().name();
        return around == "w:body" && !each.child("w:pPr").child("w:sectPr") && each.next_sibling("w:p");
    });
    const Node lost = any(paragraphs, chance);
    return lost && lost.parent().remove_child(lost);
}

bool plantInDocument(Node root, const std::string& fault, std::mt19937& chance) {
    if (fault == "letter") {
        const Node text = any(shown(root, "w:t", isShownText), chance);
        return text && changeLetter(text);
    }
    if (fault == "place lost") return losePlace(root, chance);
    if (fault == "place shifted") return shiftPlace(root, chance);
    if (fault == "bold") return changeBold(root, chance);
    return loseParagraph(root, chance);
}

/// Changes the row of the first cell of a name: "Data!$B$2" becomes "Data!$B$12".
bool shiftName(Node name) {
    std::string formula = name.text().get();
    const std::size_t at = formula.find('$', formula.find('$') + 1);
    if (formula.find('(') != std::string::npos || at == std::string::npos) return false;
    formula.insert(at + 1, "1");
    return name.text().set(formula.c_str());
}

Nodes names(Node root) {
    return shown(root, "definedName",
                 [](Node each) { return std::string(each.attribute("name").value()).starts_with("amm"); });
}

/// Returns the cells with values that no formula computes, not even the array formula of another cell.
Nodes cellsWithoutFormulas(Node root) {
    std::vector<excel::CellArea> arrays;
    for (const Node formula : shown(root, "f"))
        if (const auto area = excel::parseArea(formula.attribute("ref").value())) arrays.push_back(*area);
    return shown(root, "c", [&](Node cell) {
        const auto position = excel::parseCell(cell.attribute("r").value());
        const auto isComputed = [&](const excel::CellArea& area) { return area.contains(*position); };
        return cell.child("v") && !cell.child("f") && position && std::ranges::none_of(arrays, isComputed);
    });
}

bool plantInSheet(Node root, const std::string& fault, std::mt19937& chance) {
    const Nodes cells = cellsWithoutFormulas(root);
    if (fault == "letter") {
        Nodes numbers;
        std::ranges::copy_if(cells, std::back_inserter(numbers),
                             [](Node cell) { return cell.attribute("t").value() == std::string(); });
        const Node number = any(numbers, chance).child("v");
        return number && number.text().set((std::string(number.text().get()) + "1").c_str());
    }
    if (fault == "bold") {
        Nodes styled;
        std::ranges::copy_if(cells, std::back_inserter(styled),
                             [](Node cell) { return cell.attribute("s").as_int() != 0; });
        return any(styled, chance).remove_attribute("s");
    }
    const Node lost = any(cells, chance);
    return lost && lost.parent().remove_child(lost);
}

bool plantInNames(Node root, const std::string& fault, std::mt19937& chance) {
    const Node name = any(names(root), chance);
    if (!name) return false;
    return fault == "place lost" ? name.parent().remove_child(name) : shiftName(name);
}

/// Moves an object of a drawing two rows down, or the box of a comment or a control five columns to the
/// right.
bool moveObject(Node root, std::mt19937& chance) {
    if (const Node row = any(
            shown(root, "xdr:row", [](Node each) { return each.parent().name() == std::string("xdr:from"); }),
            chance))
        return row.text().set(row.text().as_int() + 2);
    const Node anchor = any(shown(root, "x:Anchor"), chance);
    if (!anchor) return false;
    std::istringstream cells(anchor.text().get());
    std::string moved;
    std::string number;
    for (int index = 0; std::getline(cells, number, ','); ++index)
        moved += (index == 0 ? "" : ", ") + std::to_string(std::stoi(number) + (index % 4 == 0 ? 5 : 0));
    return anchor.text().set(moved.c_str());
}

/// Returns the folder of the parts in which a fault can be planted into a workbook.
std::string folderFor(const std::string& fault) {
    return fault == "object moved" ? "/xl/drawings/" : "/xl/worksheets/";
}

/// Returns the parts in which a fault can be planted.
std::vector<std::string> partsFor(const opc::Package& package, DocumentKind kind, const std::string& fault) {
    if (kind == DocumentKind::Word && fault == "object moved") return {};
    if (kind == DocumentKind::Word || fault.starts_with("place")) return {package.mainPart()};
    std::vector<std::string> parts;
    for (const std::string& name : package.partNames())
        if (name.starts_with(folderFor(fault)) && (name.ends_with(".xml") || name.ends_with(".vml")))
            parts.push_back(name);
    return parts;
}

}  // namespace

const std::vector<std::string>& faultNames() {
    static const std::vector<std::string> kNames{"letter", "place lost",     "place shifted",
                                                 "bold",   "paragraph lost", "object moved"};
    return kNames;
}

std::optional<std::string> withFault(const std::string& bytes, DocumentKind kind, const std::string& fault,
                                     std::mt19937& chance) {
    opc::Package package = opc::Package::read(bytes, "saved");
    std::vector<std::string> parts = partsFor(package, kind, fault);
    std::ranges::shuffle(parts, chance);
    for (const std::string& name : parts) {
        const auto part = opc::XmlPart::parse(package.readPart(name), name, "saved");
        const Node root = part->root();
        const bool isPlanted = kind == DocumentKind::Word   ? plantInDocument(root, fault, chance)
                               : fault == "object moved"    ? moveObject(root, chance)
                               : fault.starts_with("place") ? plantInNames(root, fault, chance)
                                                            : plantInSheet(root, fault, chance);
        if (!isPlanted) continue;
        package.writePart(name, part->toXml());
        return packageBytes(package);
    }
    return {};
}

}  // namespace mergeloom
