#pragma once

#include "office/libreoffice/excel/CalcContent.h"
#include "office/model/excel/DefinedName.h"

#include <cstddef>
#include <string>
#include <utility>

namespace mergeloom::libreoffice {

class CalcDefinedName final : public excel::DefinedName {
  public:
    CalcDefinedName(CalcContentPtr content, std::size_t index)
        : content_(std::move(content)), index_(index) {}

    std::string Name() override;
    /// Calc reads hidden names but does not tell that they are.
    bool Visible() override { return true; }
    std::string RefersToLocal() override;
    void SetRefersToLocal(const std::string& formula) override;
    excel::RangePtr RefersToRange() override;

  private:
    [[nodiscard]] const CalcNameIndex::Entry& entry() const { return content_->names().entries().at(index_); }
    [[nodiscard]] Reference<css::sheet::XNamedRange> uno() const;

    CalcContentPtr content_;
    std::size_t index_;
};

}  // namespace mergeloom::libreoffice
