#pragma once

#include "base/AutomationError.h"
#include "office/libreoffice/excel/CalcTexts.h"
#include "office/model/excel/Selection.h"

#include <string>
#include <utility>

namespace mergeloom::libreoffice {

/// What is selected in the active sheet, where nobody selects a shape.
class CalcSelection final : public excel::Selection {
  public:
    explicit CalcSelection(CalcContentPtr content)
        : content_(std::move(content)), sheet_(content_->activeSheet()) {}

    std::string TypeName() override { return "Range"; }
    void SetValue2(const std::string& text) override {
        for (const excel::CellArea& area : content_->sheet(sheet_).selection().areas)
            fill(*content_, sheet_, area, text);
    }

  private:
    CalcContentPtr content_;
    std::size_t sheet_;
};

/// What is selected in a sheet without cells.
class CalcSelectedChart final : public excel::Selection {
  public:
    std::string TypeName() override { return "ChartArea"; }
    void SetValue2(const std::string&) override {
        throw AutomationError(kApplicationDefined, "The active sheet has no cells.");
    }
};

}  // namespace mergeloom::libreoffice
