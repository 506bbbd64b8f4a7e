#include "office/graft/ShiftedBook.h"

#include "base/Text.h"
#include "office/embedded/sheet/CalculationChain.h"
#include "office/embedded/sheet/TreeEdit.h"
#include "office/graft/ExportDifference.h"
#include "office/graft/Refusal.h"
#include "office/graft/ShiftedCells.h"
#include "office/opc/XmlPart.h"

#include <algorithm>
#include <array>
#include <vector>

namespace mergeloom::graft {

namespace {

constexpr std::array<std::string_view, 7> kFormulas{
    "f", "formula", "formula1", "formula2", "calculatedColumnFormula", "totalsRowFormula", "definedName"};

/// Elements that are moved by other rules, or that show the place where the user is.
constexpr std::array<std::string_view, 3> kMovedApart{"sheetViews", "sheetData", "definedNames"};

/// The parts of a sheet that can be moved, or that do not refer to its cells.
constexpr std::array<std::string_view, 9> kKnownTypes{"drawing",         "vmlDrawing", "comments",
                                                      "threadedComment", "table",      "hyperlink",
                                                      "printerSettings", "image",      "customProperty"};

/// The numbers of rows and columns in the anchor of a note (ECMA-376 Part 4, 19.4.2.1).
constexpr std::array<std::size_t, 2> kRowsOfAnchor{2, 6};
constexpr std::array<std::size_t, 2> kColumnsOfAnchor{0, 4};

template <std::size_t count>
bool contains(const std::array<std::string_view, count>& names, std::string_view name) {
    return std::ranges::find(names, name) != names.end();
}

/// Moves what refers to the cells of a sheet in the tree of a part.
class Mover {
  public:
    Mover(const LineShift& shift, const std::string& sheet) : shift_(shift), sheet_(sheet) {}

    /// Moves references with the name of the sheet; others, too, in a part of the sheet itself.
    void move(pugi::xml_node node, bool isOfSheet) {
        const std::string_view name = opc::localName(node);
        if (contains(kMovedApart, name)) return;
        if (contains(kFormulas, name)) return moveFormula(node, isOfSheet);
        if (isOfSheet && !moveReferences(node, name)) return removeFrom(node);
        for (pugi::xml_node child = node.first_child(); child;) {
            const pugi::xml_node next = child.next_sibling();
            if (child.type() == pugi::node_element) move(child, isOfSheet);
            child = next;
        }
    }
    void moveFormula(pugi::xml_node node, bool isOfSheet) {
        const std::string former = node.text().get();
        const std::string now = shift_.formula(former, sheet_, isOfSheet);
        if (now == former) return;
        node.text().set(now.c_str());
        isChanged_ = true;
    }
    [[nodiscard]] bool isChanged() const { return isChanged_; }
    void setChanged() { isChanged_ = true; }

  private:
    /// Returns false if nothing is left of what the element refers to.
    bool moveReferences(pugi::xml_node node, std::string_view name) {
        for (const char* attribute : {"ref", "sqref"}) {
            pugi::xml_attribute areas = node.attribute(attribute);
            if (!areas) continue;
            const std::string now = shift_.areas(areas.value());
            if (now.empty()) return false;
            set(areas, now);
        }
        if (name == "brk") return moveBreak(node);
        if (name == "col" && std::string_view(node.parent().name()).ends_with("cols"))
            return moveColumns(node);
        if (name == "from") moveAnchor(node);
        if (name == "sqref") {
            const std::string now = shift_.areas(node.text().get());
            if (now.empty()) return false;
            setText(node, now);
        }
        if (name == "Anchor") moveNote(node);
        if (name == (shift_.axis == Axis::Rows ? "Row" : "Column"))
            setText(node, std::to_string(movedFromZero(node.text().as_int())));
        return true;
    }
    /// A break is above the row, or on the left of the column, after its number.
    bool moveBreak(pugi::xml_node node) {
        const bool isOfAxis = (opc::localName(node.parent()) == "rowBreaks") == (shift_.axis == Axis::Rows);
        if (!isOfAxis) return true;
        const std::optional<int> line = shift_.line(node.attribute("id").as_int() + 1);
        if (line) set(node.attribute("id"), std::to_string(*line - 1));
        return line.has_value();
    }
    /// New columns look as the one on their left.
    bool moveColumns(pugi::xml_node node) {
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
    void moveAnchor(pugi::xml_node from) {
        const std::string_view edit = from.parent().attribute("editAs").value();
        if (edit == "absolute") return;
        const char* const wanted = shift_.axis == Axis::Rows ? "row" : "col";
        pugi::xml_node first = embedded::childNamed(from, wanted);
        pugi::xml_node last = embedded::childNamed(embedded::childNamed(from.parent(), "to"), wanted);
        const int former = first.text().as_int();
        const int now = movedFromZero(former);
        setText(first, std::to_string(now));
        if (!last) return;
        const int end = last.text().as_int();
        setText(last, std::to_string(edit == "oneCell" ? end + now - former : movedFromZero(end)));
    }
    [[nodiscard]] int movedFromZero(int line) const { return shift_.line(line + 1).value_or(shift_.at) - 1; }
    void moveNote(pugi::xml_node node) {
        const auto& wanted = shift_.axis == Axis::Rows ? kRowsOfAnchor : kColumnsOfAnchor;
        std::vector<std::string> numbers = split(node.text().get(), ',');
        for (const std::size_t index : wanted)
            if (index < numbers.size())
                numbers[index] = " " + std::to_string(movedFromZero(std::atoi(numbers[index].c_str())));
        setText(node, join(numbers, ","));
    }
    static std::vector<std::string> split(const std::string& text, char separator) {
        std::vector<std::string> pieces(1);
        for (const char each : text)
            each == separator ? void(pieces.emplace_back()) : pieces.back().push_back(each);
        return pieces;
    }
    static std::string join(const std::vector<std::string>& pieces, const char* separator) {
        std::string text;
        for (const std::string& piece : pieces)
            text += (text.empty() ? "" : separator) + piece;
        return text;
    }
    void set(pugi::xml_attribute attribute, const std::string& value) {
        if (value == attribute.value()) return;
        attribute.set_value(value.c_str());
        isChanged_ = true;
    }
    void setText(pugi::xml_node node, const std::string& text) {
        if (!node || text == node.text().get()) return;
        node.text().set(text.c_str());
        isChanged_ = true;
    }
    /// Removes an element, and the list that it was the last item of.
    void removeFrom(pugi::xml_node node) {
        if (opc::localName(node) == "comment")
            throw Refusal("rows or columns with a comment were removed", sheet_);
        pugi::xml_node parent = node.parent();
        parent.remove_child(node);
        isChanged_ = true;
        const auto left = std::ranges::count_if(
            parent.children(), [](pugi::xml_node child) { return child.type() == pugi::node_element; });
        if (left == 0) return void(parent.parent().remove_child(parent));
        if (parent.attribute("count")) parent.attribute("count").set_value(static_cast<long long>(left));
    }

    const LineShift& shift_;
    const std::string& sheet_;
    bool isChanged_ = false;
};

/// Moves the parts of one workbook.
class BookShift {
  public:
    BookShift(opc::Package& package, const std::string& sheetName, const LineShift& shift)
        : package_(package), sheetName_(sheetName), shift_(shift) {}

    void apply() {
        findSheet();
        check();
        for (const std::string& name : package_.partNames())
            if (isXml(name) && name.starts_with("/xl/")) move(name);
        embedded::UndoLog undo;
        embedded::CalculationChain chain(package_, package_.mainPart(), undo);
        chain.clear();
        chain.store();
    }

  private:
    void findSheet() {
        const auto book = parse(package_.mainPart());
        int number = 0;
        for (const pugi::xml_node sheet : embedded::childNamed(book->root(), "sheets").children()) {
            if (sheet.type() != pugi::node_element) continue;
            if (foldCase(sheet.attribute("name").value()) == foldCase(sheetName_)) {
                number_ = number;
                sheetPart_ = targetOf(package_.mainPart(), sheet);
            }
            ++number;
        }
        if (sheetPart_.empty())
            throw Refusal("LibreOffice reads the sheets differently from the file", sheetName_);
    }
    [[nodiscard]] std::string targetOf(const std::string& source, pugi::xml_node sheet) {
        const opc::Relationships& relationships = package_.relationshipsOf(source);
        for (const pugi::xml_attribute attribute : sheet.attributes()) {
            const std::string_view name = attribute.name();
            const bool isId = name.size() > 3 && name.ends_with(":id");
            const opc::Relationship* const found = isId ? relationships.find(attribute.value()) : nullptr;
            if (found != nullptr) return relationships.targetPart(*found);
        }
        return {};
    }
    void check() {
        const opc::Relationships& relationships = package_.relationshipsOf(sheetPart_);
        for (const opc::Relationship& relationship : relationships.all()) {
            const std::string_view type = opc::officeShortName(relationship.type);
            const std::string_view last =
                std::string_view(relationship.type).substr(relationship.type.rfind('/') + 1);
            if (!contains(kKnownTypes, type) && !contains(kKnownTypes, last))
                throw Refusal("rows or columns were inserted or removed beside a " + std::string(last),
                              sheetName_);
            if (relationship.mode == opc::TargetMode::External) continue;
            own_.push_back(relationships.targetPart(relationship));
            if (type == "table") checkTable(own_.back());
        }
        for (const std::string& name : package_.partNames())
            if (name.starts_with("/xl/pivotCache/pivotCacheDefinition")) checkPivotCache(name);
    }
    /// A table may get and lose records, and move as a whole.
    void checkTable(const std::string& partName) const {
        const auto part = parse(partName);
        const pugi::xml_node table = part->root();
        const auto area = excel::parseArea(table.attribute("ref").value());
        if (!area) return;
        const bool isByRows = shift_.axis == Axis::Rows;
        const int first =
            isByRows ? area->first.row + table.attribute("headerRowCount").as_int(1) : area->first.column;
        const int last =
            isByRows ? area->last.row - table.attribute("totalsRowCount").as_int() : area->last.column;
        const int end = shift_.at - std::min(shift_.count, 0);  // after the removed ones
        const bool isOutside = isByRows ? end <= area->first.row || shift_.at > area->last.row
                                        : end <= first || shift_.at > last;
        const bool isAmongRecords =
            isByRows && shift_.at >= first && end <= last + (shift_.count > 0 ? 1 : 0);
        if (!isOutside && !isAmongRecords)
            throw Refusal("rows or columns of a table were inserted or removed", sheetName_);
    }
    void checkPivotCache(const std::string& partName) const {
        const auto part = parse(partName);
        const pugi::xml_node source =
            embedded::childNamed(embedded::childNamed(part->root(), "cacheSource"), "worksheetSource");
        if (foldCase(source.attribute("sheet").value()) == foldCase(sheetName_))
            throw Refusal("rows or columns were inserted or removed in the data of a pivot table",
                          sheetName_);
    }
    void move(const std::string& partName) {
        const bool isOwn = partName == sheetPart_ || std::ranges::find(own_, partName) != own_.end();
        const auto part = parse(partName);
        Mover mover(shift_, sheetName_);
        const pugi::xml_node data = embedded::childNamed(part->root(), "sheetData");
        if (data && shiftCells(data, sheetName_, shift_, isOwn)) mover.setChanged();
        if (partName == package_.mainPart()) moveNames(part->root(), mover);
        mover.move(part->root(), isOwn);
        if (mover.isChanged()) package_.writePart(partName, part->toXml());
    }
    void moveNames(pugi::xml_node root, Mover& mover) const {
        for (const pugi::xml_node name : embedded::childNamed(root, "definedNames").children()) {
            if (name.type() != pugi::node_element) continue;
            const pugi::xml_attribute sheet = name.attribute("localSheetId");
            mover.moveFormula(name, sheet && sheet.as_int() == number_);
        }
    }
    [[nodiscard]] std::unique_ptr<opc::XmlPart> parse(const std::string& name) const {
        return opc::XmlPart::parse(package_.readPart(name), name, package_.fileName());
    }

    opc::Package& package_;
    const std::string& sheetName_;
    const LineShift& shift_;
    std::string sheetPart_;
    int number_ = 0;
    std::vector<std::string> own_;  ///< the parts that belong to the sheet
};

}  // namespace

void shiftLines(opc::Package& package, const std::string& sheetName, const LineShift& shift) {
    BookShift(package, sheetName, shift).apply();
}

}  // namespace mergeloom::graft
