#pragma once

#include "office/graft/CellLinks.h"
#include "office/graft/ExportedFormats.h"
#include "office/graft/FormatNumbers.h"
#include "office/graft/ObjectPlace.h"
#include "office/model/excel/CellAddress.h"
#include "office/opc/Package.h"
#include "office/opc/XmlPart.h"

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <pugixml.hpp>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace mergeloom::graft {

/// The shared texts of an export.
class ExportedTexts {
  public:
    struct Item {
        pugi::xml_node node;
        int number = -1;  ///< equal for equal texts with equal formats
    };

    /// Raises kFileCouldNotBeRead for a damaged part.
    ExportedTexts(opc::Package& package, FormatNumbers& numbers);

    /// Returns the text of that index; one without a node if there is none.
    [[nodiscard]] Item at(std::size_t index) const;

  private:
    std::unique_ptr<opc::XmlPart> part_;
    std::vector<Item> items_;
};

/// A cell of an exported sheet. Views refer to the sheet's part.
struct ExportedCell {
    excel::CellPosition place;
    int style = 0;
    std::string_view type;     ///< the attribute t; empty for a cell without content
    std::string_view value;    ///< as stored; empty for a shared text
    std::string_view formula;  ///< the text of the formula
    pugi::xml_node formulaNode;
    pugi::xml_node text;  ///< the item of the shared texts
    int textNumber = -1;  ///< equal for equal texts, with their formats

    [[nodiscard]] bool isEmpty() const { return type.empty(); }
    [[nodiscard]] bool hasFormula() const { return static_cast<bool>(formulaNode); }
};

/// Returns true if two cells have the same content. The results of equal formulas are not compared.
bool haveSameContent(const ExportedCell* a, const ExportedCell* b);

/// A row of an exported sheet.
struct ExportedRow {
    std::optional<std::string> height{};  ///< in points; none if the office chooses it
    bool hidden = false;
    std::optional<int> style{};  ///< of new cells
    std::string outline{};       ///< its level in groups of rows; empty outside of groups
    std::string anyHeight{};     ///< also a height that the office chose
};

/// Adjacent columns of an exported sheet that are formatted alike.
struct ExportedColumns {
    int first = 0;
    int last = 0;
    std::string width{};
    bool hidden = false;
    int style = 0;
    std::string outline{};
};

/// A worksheet of an export.
class ExportedSheet {
  public:
    /// Reads the sheet's part and all that it refers to. Raises kFileCouldNotBeRead. The texts must outlive
    /// the sheet.
    ExportedSheet(std::string name, opc::Package& package, const std::string& partName,
                  const ExportedTexts& texts, const ExportedFormats& formats);

    /// Creates an empty sheet, for comparison with a sheet that an export does not contain.
    explicit ExportedSheet(std::string name) : name_(std::move(name)) {}

    [[nodiscard]] const std::string& name() const { return name_; }
    [[nodiscard]] const opc::XmlPart& part() const { return *part_; }
    /// Returns the part of the drawing and the anchors in it. Only for a sheet with objects.
    [[nodiscard]] const opc::XmlPart& drawing() const { return *drawing_; }
    [[nodiscard]] const std::vector<pugi::xml_node>& anchors() const { return anchors_; }
    /// Returns the cell; null if the part does not contain it.
    [[nodiscard]] const ExportedCell* cellAt(const excel::CellPosition& place) const;
    /// Returns the definition of a column; null if it has none.
    [[nodiscard]] const ExportedColumns* columnAt(int column) const;
    /// Returns the index of the format of a cell, also of one that the part does not contain.
    [[nodiscard]] int styleAt(const excel::CellPosition& place) const;
    /// Returns true if the cell is in the area of an array formula, but not its first cell.
    [[nodiscard]] bool isArrayResult(const excel::CellPosition& place) const;

    std::vector<ExportedCell> cells;  ///< by their places
    std::map<int, ExportedRow> rows;
    std::vector<ExportedColumns> columns;
    std::set<std::string> merges;
    std::vector<excel::CellArea> arrays;  ///< of the array formulas of several cells
    /// All other content in canonical form, by the names of elements or relationships.
    std::map<std::string, std::string> sections;
    std::vector<std::string> objects;  ///< the drawing's objects, without their places
    std::vector<ObjectPlace> places;   ///< those of the objects
    std::vector<ObjectPlace> boxes;    ///< those of comments' boxes and controls
    CellLinks links;
    double defaultHeight = 0;  ///< of rows, in points

  private:
    void readSections(opc::Package& package, const std::string& partName, const ExportedFormats& formats);
    void readCell(pugi::xml_node node, const ExportedTexts& texts);
    void readRow(pugi::xml_node node, const ExportedTexts& texts);
    void readColumns(pugi::xml_node list);
    void readDrawing(opc::Package& package, const std::string& partName);
    void readBoxes(opc::Package& package, const std::string& partName);
    void readLinks(const opc::Relationships& relationships);
    void readTargets(opc::Package& package, const std::string& partName);

    std::string name_;
    std::unique_ptr<opc::XmlPart> part_;
    std::unique_ptr<opc::XmlPart> drawing_;
    std::vector<pugi::xml_node> anchors_;
};

}  // namespace mergeloom::graft
