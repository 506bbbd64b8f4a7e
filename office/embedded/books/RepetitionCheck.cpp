#include "office/embedded/books/RepetitionCheck.h"

#include "office/opc/XmlPart.h"

#include <optional>
#include <string>
#include <string_view>

namespace mergeloom::embedded {

namespace {

class ObstacleFinder {
  public:
    ObstacleFinder(WorkbookContent& content, BookSheets& sheets) : content_(content), sheets_(sheets) {}

    void find(std::size_t sheet) {
        if (content_.sheet(sheet).protection().contents) {
            sheets_.obstacles.push_back("the sheet '" + content_.workbook().sheets()[sheet].name +
                                        "' is protected");
        }
        const opc::Relationships& relationships =
            content_.package().relationshipsOf(content_.workbook().sheets()[sheet].partName);
        for (const opc::Relationship* relationship : relationships.ofOfficeType("table"))
            checkTable(relationships.targetPart(*relationship), sheets_.maps[sheet]);
        for (const opc::Relationship* relationship : relationships.ofOfficeType("pivotTable"))
            checkPivotTable(relationships.targetPart(*relationship), sheets_.maps[sheet]);
    }

  private:
    [[nodiscard]] std::unique_ptr<opc::XmlPart> read(const std::string& partName) const {
        return opc::XmlPart::parse(content_.package().readPart(partName), partName,
                                   content_.package().fileName());
    }

    /// A table may grow with the rows if it has all of their cells among its records.
    void checkTable(const std::string& partName, const RowMap& map) {
        const auto part = read(partName);
        const pugi::xml_node table = part->root();
        const std::optional<excel::CellArea> area = excel::parseArea(table.attribute("ref").value());
        if (!area) return;
        const int firstRecord = area->first.row + table.attribute("headerRowCount").as_int(1);
        const int lastRecord = area->last.row - table.attribute("totalsRowCount").as_int();
        for (const RepeatedRows& rows : map.groups()) {
            if (area->last.row < rows.first || area->first.row > rows.end) continue;
            const bool grows =
                firstRecord <= rows.first && lastRecord >= rows.last && rows.isCoveredBy(*area);
            if (grows) continue;
            sheets_.obstacles.push_back("the table '" + std::string(table.attribute("displayName").value()) +
                                        "' is beside or across them");
        }
    }

    void checkPivotTable(const std::string& partName, const RowMap& map) {
        const auto part = read(partName);
        for (const pugi::xml_node child : part->root().children()) {
            const std::optional<excel::CellArea> area = excel::parseArea(child.attribute("ref").value());
            if (!area || !std::string_view(child.name()).ends_with("location")) continue;
            for (const RepeatedRows& rows : map.groups()) {
                if (area->last.row < rows.first || area->first.row > rows.end) continue;
                sheets_.obstacles.emplace_back("a pivot table is beside or across them");
            }
        }
    }

    WorkbookContent& content_;
    BookSheets& sheets_;
};

}  // namespace

void addObstacles(WorkbookContent& content, const BookPlaces& places, BookSheets& sheets) {
    for (std::size_t sheet = 0; sheet < places.maps.size(); ++sheet) {
        if (!places.maps[sheet].isEmpty()) ObstacleFinder(content, sheets).find(sheet);
    }
}

}  // namespace mergeloom::embedded
