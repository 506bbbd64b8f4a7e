#pragma once

#include "office/libreoffice/word/WriterContent.h"
#include "office/model/word/Tables.h"

#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace mergeloom::libreoffice {

/// The tables of a range, or without one those of the document's body. They are looked for when they are
/// asked for.
class WriterTables final : public word::Tables {
  public:
    WriterTables(std::shared_ptr<WriterContent> content, RangePtr range)
        : content_(std::move(content)), range_(std::move(range)) {}

    int Count() override;
    word::TablePtr Item(int number) override;
    word::TablePtr Add(word::Range& range, int rows, int columns) override;

  private:
    [[nodiscard]] const std::vector<TableReference>& tables();
    [[nodiscard]] std::vector<TableReference> allTables() const;
    [[nodiscard]] const TextReference& story() const;

    std::shared_ptr<WriterContent> content_;
    RangePtr range_;
    std::optional<std::vector<TableReference>> tables_;
};

}  // namespace mergeloom::libreoffice
