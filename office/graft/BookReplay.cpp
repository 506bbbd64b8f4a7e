#include "office/graft/BookReplay.h"

#include "base/Text.h"
#include "office/embedded/sheet/ColumnWidths.h"
#include "office/embedded/sheet/TreeEdit.h"
#include "office/embedded/sheet/XmlText.h"
#include "office/graft/CellContentXml.h"
#include "office/graft/Refusal.h"
#include "office/model/excel/SheetReference.h"

#include <algorithm>
#include <iterator>
#include <set>

namespace mergeloom::graft {

namespace {

using embedded::SheetPart;

std::string placeText(const ExportedSheet& sheet, const excel::CellPosition& place) {
    return sheet.name() + "!" + addressOf(place);
}

/// Returns the formula of a name in the form that unattended runs write.
std::string nameFormula(const std::string& exported) {
    const auto reference = excel::parseReference(exported);
    return reference && !reference->sheetName.empty() ? excel::referenceText(*reference) : exported;
}

/// Returns the first column after the given one that has a definition, or the one after the last column.
int nextDefined(const embedded::ColumnDefinitions& definitions, int column) {
    const auto next = definitions.all().upper_bound(column);
    return next == definitions.all().end() ? excel::kLastColumn + 1 : next->second.first;
}

void setOrRemove(embedded::XmlTag& tag, std::string_view name, const std::string& value) {
    if (value.empty()) {
        tag.remove(name);
    } else {
        tag.set(name, value);
    }
}

/// Raises Refusal for a formula that refers to another workbook. Its number, as in "[1]Sheet1!A1", may be
/// another one in the original.
void checkLinks(std::string_view formula, const std::string& place) {
    for (std::size_t at = formula.find('['); at != std::string_view::npos; at = formula.find('[', at + 1)) {
        const std::size_t end = formula.find_first_not_of("0123456789", at + 1);
        if (end != at + 1 && end != std::string_view::npos && formula[end] == ']')
            throw Refusal("a formula with cells of another workbook was changed", place);
    }
}

}  // namespace

std::size_t BookReplay::indexOf(const std::string& sheetName) const {
    const auto found = original_.worksheetNamed(sheetName);
    if (!found) throw Refusal("LibreOffice reads the sheets differently from the file", sheetName);
    return *found;
}

void BookReplay::repeat(const ExportedSheet& former, const ExportedSheet& now,
                        const SheetDifference& difference) {
    if (difference.isEmpty() && difference.results.empty()) return;
    const std::size_t sheet = indexOf(former.name());
    // Formats of rows and columns are set last, since cells without a format inherit them.
    for (const CellChange& change : difference.cells)
        if (change.hasOtherFormat) repeatFormat(sheet, change, former, now);
    for (const CellChange& change : difference.cells) {
        if (!change.hasOtherContent) continue;
        if (change.now != nullptr &&
            std::string_view(change.now->formulaNode.attribute("t").value()) == "array")
            throw Refusal("an array formula was changed", placeText(now, change.place));
        if (change.now != nullptr) checkLinks(change.now->formula, placeText(now, change.place));
        repeatContent(sheet, change);
    }
    for (const ExportedCell* const cell : difference.results)
        original_.sheet(sheet).part().setResult(cell->place, resultOf(*cell, original_.sheet(sheet).part()));
    for (const RowChange& change : difference.rows)
        repeatRow(sheet, change);
    repeatColumns(sheet, now, difference);
    repeatMerges(sheet, difference);
    if (difference.hasOtherLinks) repeatLinks(original_, sheet, former.links, now.links);
}

void BookReplay::repeatContent(std::size_t sheet, const CellChange& change) {
    const ExportedCell* const now = change.now;
    embedded::SheetContent& content = original_.sheet(sheet);
    if (now == nullptr || now->isEmpty()) return original_.setContent(sheet, change.place, {});
    // setText ignores cells that are covered by merged cells, which have not been repeated yet.
    const std::optional<std::string> text = plainText(*now);
    if (text && !content.merged().isCovered(change.place))
        return original_.setText(sheet, change.place, *text);
    original_.setContent(sheet, change.place, contentOf(*now, content.part()));
}

void BookReplay::repeatFormat(std::size_t sheet, const CellChange& change, const ExportedSheet& former,
                              const ExportedSheet& now) {
    SheetPart& part = original_.sheet(sheet).part();
    const int style = part.styleAt(change.place);
    const int changed = formats_.changed(style, former_.formats().at(former.styleAt(change.place)),
                                         now_.formats().at(now.styleAt(change.place)));
    if (changed != style) part.setStyle(change.place, changed);
}

void BookReplay::repeatRow(std::size_t sheet, const RowChange& change) {
    SheetPart& part = original_.sheet(sheet).part();
    static const ExportedRow kNone{};
    const ExportedRow& former = change.former == nullptr ? kNone : *change.former;
    const ExportedRow& now = change.now == nullptr ? kNone : *change.now;
    if (former.outline != now.outline)
        throw Refusal("rows were grouped or ungrouped", original_.workbook().sheets()[sheet].name);
    if (former.height != now.height) {
        part.setRowAttribute(change.row, "ht", now.height);
        part.setRowAttribute(change.row, "customHeight",
                             now.height ? std::optional<std::string>("1") : std::nullopt);
    }
    if (former.hidden != now.hidden)
        part.setRowAttribute(change.row, "hidden",
                             now.hidden ? std::optional<std::string>("1") : std::nullopt);
    const ExportedFormat& formerFormat = former_.formats().at(former.style.value_or(0));
    const ExportedFormat& nowFormat = now_.formats().at(now.style.value_or(0));
    if (formerFormat.number == nowFormat.number) return;
    const int style = formats_.changed(part.rowStyle(change.row).value_or(0), formerFormat, nowFormat);
    part.setRowAttribute(change.row, "s", std::to_string(style));
    part.setRowAttribute(change.row, "customFormat", "1");
}

void BookReplay::repeatColumns(std::size_t sheet, const ExportedSheet& now,
                               const SheetDifference& difference) {
    if (difference.columns.empty()) return;
    SheetPart& part = original_.sheet(sheet).part();
    embedded::ColumnDefinitions definitions(part.section("cols"), part.elementName("cols"),
                                            part.elementName("col"));
    for (const ColumnsChange& change : difference.columns)
        repeatColumns(definitions, change, now.name());
    part.setSection("cols", definitions.toXml());
}

void BookReplay::repeatColumns(embedded::ColumnDefinitions& definitions, const ColumnsChange& change,
                               const std::string& sheetName) {
    const ExportedColumns none{change.first, change.last, {}, false, 0, {}};
    const ExportedColumns& former = change.former == nullptr ? none : *change.former;
    const ExportedColumns& now = change.now == nullptr ? none : *change.now;
    if (former.outline != now.outline) throw Refusal("columns were grouped or ungrouped", sheetName);
    for (int column = change.first; column <= change.last;) {
        const auto known = definitions.find(column);
        embedded::ColumnDefinition own = known.value_or(definitions.newDefinition(column));
        own.first = column;
        own.last = std::min(change.last, known ? own.last : nextDefined(definitions, column) - 1);
        if (former.width != now.width) {
            setOrRemove(own.tag, "width", now.width);
            setOrRemove(own.tag, "customWidth", now.width.empty() ? "" : "1");
            own.tag.remove("bestFit");
        }
        if (former.hidden != now.hidden) setOrRemove(own.tag, "hidden", now.hidden ? "1" : "");
        const int style = embedded::findNumber(own.tag.attributes(), "style").value_or(0);
        const int changed =
            formats_.changed(style, former_.formats().at(former.style), now_.formats().at(now.style));
        if (changed != style) own.tag.set("style", std::to_string(changed));
        definitions.put(own);
        column = own.last + 1;
    }
}

void BookReplay::repeatMerges(std::size_t sheet, const SheetDifference& difference) {
    if (difference.removedMerges.empty() && difference.addedMerges.empty()) return;
    SheetPart& part = original_.sheet(sheet).part();
    pugi::xml_document document;
    std::string xml = part.section("mergeCells");
    if (xml.empty()) xml = "<" + part.elementName("mergeCells") + "/>";
    document.load_string(xml.c_str(), pugi::parse_full);
    pugi::xml_node list = document.document_element();
    const std::string item = part.elementName("mergeCell");
    for (const std::string& area : difference.removedMerges) {
        const auto wanted = excel::parseArea(area);
        const pugi::xml_node merged = list.find_child(
            [&](pugi::xml_node node) { return excel::parseArea(node.attribute("ref").value()) == wanted; });
        if (!merged) throw Refusal("LibreOffice reads the merged cells differently from the file", area);
        list.remove_child(merged);
    }
    for (const std::string& area : difference.addedMerges)
        list.append_child(item.c_str()).append_attribute("ref").set_value(area.c_str());
    const auto count = std::ranges::distance(list.children(item.c_str()));
    if (count == 0) return part.setSection("mergeCells", "");
    if (list.attribute("count")) list.attribute("count").set_value(static_cast<long long>(count));
    part.setSection("mergeCells", opc::packageXmlText(document));
}

void BookReplay::repeatNames(const std::map<std::string, std::string>& formerSheets) {
    const auto formerKey = [&](const NameKey& key) {
        const auto renamed = formerSheets.find(key.first);
        return renamed == formerSheets.end() ? key : NameKey{renamed->second, key.second};
    };
    std::set<NameKey> kept;
    for (const auto& [key, formula] : now_.names()) {
        const NameKey former = formerKey(key);
        kept.insert(former);
        const auto found = former_.names().find(former);
        if (found == former_.names().end() || found->second != formula) changeName(former, &formula);
    }
    for (const auto& [key, formula] : former_.names())
        if (!kept.contains(key)) changeName(key, nullptr);
}

int BookReplay::scopeOf(const std::string& sheetName) const {
    if (sheetName.empty()) return embedded::DefinedNames::kWorkbook;
    const auto sheet = original_.worksheetNamed(sheetName);
    if (!sheet) throw Refusal("a name of a sheet was changed that the file does not have", sheetName);
    return static_cast<int>(*sheet);
}

/// Defines a name. Removes it if there is no formula.
void BookReplay::changeName(const NameKey& key, const std::string* formula) {
    embedded::DefinedNames& names = original_.workbook().names();
    const int scope = scopeOf(key.first);
    const auto found = names.find(key.second, scope);
    if (formula == nullptr) {
        if (!found) throw Refusal("LibreOffice reads the names differently from the file", key.second);
        return names.remove(*found);
    }
    checkLinks(*formula, key.second);
    names.define(key.second, nameFormula(*formula), scope);
}

void BookReplay::store() {
    original_.storeParts();
    formats_.store();
}

}  // namespace mergeloom::graft
