#pragma once

#include "office/libreoffice/word/WriterCells.h"
#include "office/model/word/Table.h"

#include <utility>

namespace mergeloom::libreoffice {

class WriterTable final : public word::Table {
  public:
    explicit WriterTable(TablePlace place) : place_(std::move(place)) {}

    word::RangePtr Range() override;
    word::RowsPtr Rows() override;
    word::ColumnsPtr Columns() override;
    bool Uniform() override;
    void Select() override;
    void Delete() override;

  private:
    TablePlace place_;
};

}  // namespace mergeloom::libreoffice
