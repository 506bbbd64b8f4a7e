#include "office/graft/ShiftedCells.h"

#include "office/embedded/sheet/SharedFormula.h"
#include "office/embedded/sheet/TreeEdit.h"
#include "office/graft/Refusal.h"
#include "office/opc/XmlPart.h"

#include <map>
#include <string_view>
#include <vector>

namespace mergeloom::graft {

namespace {

std::vector<pugi::xml_node> elementsOf(pugi::xml_node parent) {
    std::vector<pugi::xml_node> all;
    for (const pugi::xml_node child : parent.children())
        if (child.type() == pugi::node_element) all.push_back(child);
    return all;
}

void set(pugi::xml_node node, const char* name, const std::string& value) {
    pugi::xml_attribute attribute = node.attribute(name);
    if (!attribute) attribute = node.prepend_attribute(name);
    attribute.set_value(value.c_str());
}

/// The formula that the cells of a group share.
struct SharedText {
    std::string text;
    excel::CellPosition cell;
};

class CellShift {
  public:
    CellShift(const std::string& sheetName, const LineShift& shift, bool isSheet)
        : sheetName_(sheetName), shift_(shift), isSheet_(isSheet) {}

    bool apply(pugi::xml_node data) {
        number(data);
        divideSharedFormulas(data);
        for (const pugi::xml_node row : elementsOf(data))
            for (const pugi::xml_node cell : elementsOf(row))
                moveFormula(cell);
        if (!isSheet_) return isChanged_;
        shift_.axis == Axis::Rows ? moveRows(data) : moveColumns(data);
        return true;
    }

  private:
    /// Writes the numbers of rows and cells that are left out where they follow the one before.
    void number(pugi::xml_node data) const {
        if (!isSheet_) return;
        int rowNumber = 0;
        for (const pugi::xml_node row : elementsOf(data)) {
            rowNumber = row.attribute("r").as_int(rowNumber + 1);
            set(row, "r", std::to_string(rowNumber));
            int column = 0;
            for (const pugi::xml_node cell : elementsOf(row)) {
                const auto place = excel::parseCell(cell.attribute("r").value());
                column = place ? place->column : column + 1;
                set(cell, "r", excel::addressOf(excel::CellPosition{rowNumber, column}));
            }
        }
    }
    /// Gives each cell of the groups its own formula if the references of one of them move.
    void divideSharedFormulas(pugi::xml_node data) {
        std::map<int, SharedText> masters;
        std::vector<pugi::xml_node> shared;
        for (const pugi::xml_node row : elementsOf(data)) {
            for (const pugi::xml_node cell : elementsOf(row)) {
                const pugi::xml_node formula = embedded::childNamed(cell, "f");
                const std::string_view type = formula.attribute("t").value();
                if (type == "dataTable" && isSheet_)
                    throw Refusal("rows or columns were inserted or removed beside a data table", sheetName_);
                if (type == "array" && isSheet_) checkArray(formula);
                if (type != "shared") continue;
                shared.push_back(cell);
                const auto place = excel::parseCell(cell.attribute("r").value());
                const std::string text = formula.text().get();
                if (place && !text.empty())
                    masters.emplace(formula.attribute("si").as_int(), SharedText{text, *place});
            }
        }
        if (!isSheet_ && !refersToSheet(masters)) return;
        for (const pugi::xml_node cell : shared)
            divide(cell, masters);
    }
    [[nodiscard]] bool refersToSheet(const std::map<int, SharedText>& masters) const {
        for (const auto& [group, master] : masters)
            if (master.text.find('!') != std::string::npos) return true;
        return false;
    }
    void divide(pugi::xml_node cell, const std::map<int, SharedText>& masters) {
        pugi::xml_node formula = embedded::childNamed(cell, "f");
        const auto master = masters.find(formula.attribute("si").as_int());
        const auto place = excel::parseCell(cell.attribute("r").value());
        if (master == masters.end() || !place)
            throw Refusal("LibreOffice reads a shared formula differently from the file", sheetName_);
        const auto& [text, first] = master->second;
        formula.text().set(
            embedded::shiftFormula(text, place->row - first.row, place->column - first.column).text.c_str());
        for (const char* name : {"t", "si", "ref"})
            formula.remove_attribute(name);
        isChanged_ = true;
    }
    /// A part of the result of an array formula cannot be inserted or removed.
    void checkArray(pugi::xml_node formula) const {
        const auto area = excel::parseArea(formula.attribute("ref").value());
        if (!area) return;
        const auto moved = shift_.area(*area);
        const bool isWhole =
            moved && moved->last.row - moved->first.row == area->last.row - area->first.row &&
            moved->last.column - moved->first.column == area->last.column - area->first.column;
        if (!isWhole) throw Refusal("an array formula was divided", sheetName_);
    }
    void moveFormula(pugi::xml_node cell) {
        pugi::xml_node formula = embedded::childNamed(cell, "f");
        if (!formula) return;
        if (pugi::xml_attribute area = formula.attribute("ref"); area && isSheet_)
            area.set_value(shift_.areas(area.value()).c_str());
        const std::string former = formula.text().get();
        const std::string now = shift_.formula(former, sheetName_, isSheet_);
        if (now == former) return;
        formula.text().set(now.c_str());
        isChanged_ = true;
    }

    void moveRows(pugi::xml_node data) const {
        pugi::xml_node above;
        pugi::xml_node below;
        for (const pugi::xml_node row : elementsOf(data)) {
            const int former = row.attribute("r").as_int();
            if (former == shift_.at - 1) above = row;
            const std::optional<int> now = shift_.line(former);
            if (!now) {
                data.remove_child(row);
                continue;
            }
            if (former >= shift_.at && !below) below = row;
            setRow(row, *now);
        }
        if (!above) return;
        for (int number = 0; number < shift_.count; ++number) {
            pugi::xml_node added =
                below ? data.insert_child_before(above.name(), below) : data.append_child(above.name());
            addFormats(added, above, shift_.at + number);
        }
    }
    static void setRow(pugi::xml_node row, int number) {
        set(row, "r", std::to_string(number));
        for (const pugi::xml_node cell : elementsOf(row)) {
            const auto place = excel::parseCell(cell.attribute("r").value());
            if (place) set(cell, "r", excel::addressOf(excel::CellPosition{number, place->column}));
        }
    }
    static void addFormats(pugi::xml_node added, pugi::xml_node above, int number) {
        added.append_attribute("r").set_value(number);
        for (const char* name : {"s", "customFormat"})
            if (above.attribute(name)) added.append_copy(above.attribute(name));
        for (const pugi::xml_node cell : elementsOf(above)) {
            if (!cell.attribute("s")) continue;
            pugi::xml_node copy = added.append_child(cell.name());
            copy.append_attribute("r");
            copy.append_copy(cell.attribute("s"));
            const auto place = excel::parseCell(cell.attribute("r").value());
            if (place) set(copy, "r", excel::addressOf(excel::CellPosition{number, place->column}));
        }
    }

    void moveColumns(pugi::xml_node data) const {
        for (pugi::xml_node row : elementsOf(data)) {
            row.remove_attribute("spans");
            pugi::xml_node left;
            for (const pugi::xml_node cell : elementsOf(row)) {
                const auto place = excel::parseCell(cell.attribute("r").value());
                if (!place) continue;
                if (place->column == shift_.at - 1) left = cell;
                const std::optional<excel::CellPosition> now = shift_.cell(*place);
                now ? set(cell, "r", excel::addressOf(*now)) : void(row.remove_child(cell));
            }
            if (left && left.attribute("s")) addCells(row, left);
        }
    }
    void addCells(pugi::xml_node row, pugi::xml_node left) const {
        const auto place = excel::parseCell(left.attribute("r").value());
        pugi::xml_node last = left;
        for (int number = 0; number < shift_.count; ++number) {
            last = row.insert_child_after(left.name(), last);
            const excel::CellPosition cell{place->row, shift_.at + number};
            last.append_attribute("r").set_value(excel::addressOf(cell).c_str());
            last.append_copy(left.attribute("s"));
        }
    }

    const std::string& sheetName_;
    const LineShift& shift_;
    bool isSheet_;
    bool isChanged_ = false;
};

}  // namespace

bool shiftCells(pugi::xml_node sheetData, const std::string& sheetName, const LineShift& shift,
                bool isSheet) {
    return CellShift(sheetName, shift, isSheet).apply(sheetData);
}

}  // namespace mergeloom::graft
