#pragma once

#include "office/libreoffice/excel/CalcContent.h"
#include "office/model/excel/Names.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>

namespace mergeloom::libreoffice {

class CalcNames final : public excel::Names {
  public:
    explicit CalcNames(CalcContentPtr content) : content_(std::move(content)) {}

    int Count() override { return static_cast<int>(content_->names().entries().size()); }
    excel::DefinedNamePtr Item(int number) override;
    excel::DefinedNamePtr Item(const std::string& name) override;
    bool Exists(const std::string& name) override;
    excel::DefinedNamePtr Add(const std::string& name, const std::string& refersToLocal) override;
    std::int64_t firstFreeCounter(const std::string& stem) override;

  private:
    [[nodiscard]] std::optional<std::size_t> find(const std::string& name) const;
    excel::DefinedNamePtr define(const std::string& name, const std::string& refersToLocal);

    CalcContentPtr content_;
};

}  // namespace mergeloom::libreoffice
