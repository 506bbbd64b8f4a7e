#include "office/graft/ShiftedBook.h"

#include "base/Text.h"
#include "office/embedded/sheet/CalculationChain.h"
#include "office/embedded/sheet/TreeEdit.h"
#include "office/graft/ExportDifference.h"
#include "office/graft/ReferenceMover.h"
#include "office/graft/Refusal.h"
#include "office/graft/ShiftedCells.h"
#include "office/opc/XmlPart.h"

#include <algorithm>
#include <array>
#include <vector>

namespace mergeloom::graft {

namespace {

/// The parts of a sheet that can be moved, or that do not refer to its cells.
constexpr std::array<std::string_view, 9> kKnownTypes{"drawing",         "vmlDrawing", "comments",
                                                      "threadedComment", "table",      "hyperlink",
                                                      "printerSettings", "image",      "customProperty"};

bool isKnown(std::string_view type) {
    return std::ranges::find(kKnownTypes, type) != kKnownTypes.end();
}

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
            if (!isKnown(type) && !isKnown(last))
                throw Refusal("rows or columns were inserted or removed beside a " + std::string(last),
                              sheetName_);
            if (relationship.mode == opc::TargetMode::External) continue;
            own_.push_back(relationships.targetPart(relationship));
            if (type == "table") checkTable(own_.back());
        }
        for (const std::string& name : package_.partNames())
            if (name.starts_with("/xl/pivotCache/pivotCacheDefinition")) checkPivotCache(name);
    }
    /// A table may get and lose records, but not all of them, and move as a whole.
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
        const bool areAllRecords = shift_.at == first && end == last + 1;
        const bool isAmongRecords =
            isByRows && shift_.at >= first && end <= last + 1 && (shift_.count > 0 || !areAllRecords);
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
        ReferenceMover mover(shift_, sheetName_);
        const pugi::xml_node data = embedded::childNamed(part->root(), "sheetData");
        if (data && shiftCells(data, sheetName_, shift_, isOwn)) mover.setChanged();
        if (partName == package_.mainPart()) moveNames(part->root(), mover);
        mover.moveAll(part->root(), isOwn);
        if (mover.isChanged()) package_.writePart(partName, part->toXml());
    }
    void moveNames(pugi::xml_node root, ReferenceMover& mover) const {
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
