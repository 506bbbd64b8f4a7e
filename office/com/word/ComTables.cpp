#include "office/com/word/ComWordModel.h"
#include "office/model/word/Range.h"
#include "office/model/word/Table.h"
#include "office/model/word/TableSize.h"

namespace mergeloom::com {

namespace {

/// WdDefaultTableBehavior: a table with a visible grid.
constexpr int kWord9TableBehavior = 1;
/// WdAutoFitBehavior: columns that keep their widths.
constexpr int kAutoFitFixed = 0;

class ComCell final : public word::Cell {
  public:
    ComCell(ComWordModelPtr model, AutomationObject cell)
        : model_(std::move(model)), cell_(std::move(cell)) {}

    word::RangePtr Range() override { return makeRange(model_, cell_.object("Range", "Range")); }
    int ColumnIndex() override { return cell_.get("ColumnIndex").integer(); }
    int RowIndex() override { return cell_.get("RowIndex").integer(); }
    void Select() override { cell_.call("Select"); }

  private:
    ComWordModelPtr model_;
    AutomationObject cell_;
};

class ComCells final : public word::Cells {
  public:
    ComCells(ComWordModelPtr model, AutomationObject cells)
        : model_(std::move(model)), cells_(std::move(cells)) {}

    int Count() override { return cells_.get("Count").integer(); }
    word::CellPtr Item(int number) override {
        return std::make_shared<ComCell>(model_, cells_.object("Cell", "Item", {number}));
    }

  private:
    ComWordModelPtr model_;
    AutomationObject cells_;
};

class ComRow final : public word::Row {
  public:
    ComRow(ComWordModelPtr model, AutomationObject row) : model_(std::move(model)), row_(std::move(row)) {}
    word::CellsPtr Cells() override { return makeCells(model_, row_.object("Cells", "Cells")); }

  private:
    ComWordModelPtr model_;
    AutomationObject row_;
};

class ComRows final : public word::Rows {
  public:
    ComRows(ComWordModelPtr model, AutomationObject rows)
        : model_(std::move(model)), rows_(std::move(rows)) {}

    int Count() override { return rows_.get("Count").integer(); }
    word::RowPtr Item(int number) override { return make(rows_.object("Row", "Item", {number})); }
    word::RowPtr Add() override { return make(rows_.callForObject("Row", "Add")); }

  private:
    word::RowPtr make(const AutomationObject& row) { return std::make_shared<ComRow>(model_, row); }

    ComWordModelPtr model_;
    AutomationObject rows_;
};

class ComTable final : public word::Table {
  public:
    ComTable(ComWordModelPtr model, AutomationObject table)
        : model_(std::move(model)), table_(std::move(table)) {}

    word::RangePtr Range() override { return makeRange(model_, table_.object("Range", "Range")); }
    word::RowsPtr Rows() override { return std::make_shared<ComRows>(model_, table_.object("Rows", "Rows")); }
    word::ColumnsPtr Columns() override {
        const int count = table_.object("Columns", "Columns").get("Count").integer();
        return std::make_shared<model::FixedCount<word::Columns>>(count);
    }
    bool Uniform() override { return table_.get("Uniform").truth(); }
    void Select() override { table_.call("Select"); }
    void Delete() override { table_.call("Delete"); }

  private:
    ComWordModelPtr model_;
    AutomationObject table_;
};

class ComTables final : public word::Tables {
  public:
    ComTables(ComWordModelPtr model, AutomationObject tables)
        : model_(std::move(model)), tables_(std::move(tables)) {}

    int Count() override { return tables_.get("Count").integer(); }
    word::TablePtr Item(int number) override { return make(tables_.object("Table", "Item", {number})); }
    word::TablePtr Add(word::Range& range, int rows, int columns) override {
        word::checkTableSize(rows, columns);
        return make(tables_.callForObject("Table", "Add",
                                          {{"Range", model_->referenceOf(range)},
                                           {"NumRows", rows},
                                           {"NumColumns", columns},
                                           {"DefaultTableBehavior", kWord9TableBehavior},
                                           {"AutoFitBehavior", kAutoFitFixed}}));
    }

  private:
    word::TablePtr make(const AutomationObject& table) { return std::make_shared<ComTable>(model_, table); }

    ComWordModelPtr model_;
    AutomationObject tables_;
};

}  // namespace

word::CellsPtr makeCells(const ComWordModelPtr& model, const AutomationObject& cells) {
    return std::make_shared<ComCells>(model, cells);
}

word::TablesPtr makeTables(const ComWordModelPtr& model, const AutomationObject& tables) {
    return std::make_shared<ComTables>(model, tables);
}

}  // namespace mergeloom::com
