#pragma once

#include "office/libreoffice/word/WriterContent.h"
#include "office/model/word/Selection.h"

#include <memory>
#include <utility>

namespace mergeloom::libreoffice {

/// The font of what is selected.
class WriterFont final : public word::Font {
  public:
    explicit WriterFont(std::shared_ptr<WriterContent> content) : content_(std::move(content)) {}

    void SetSize(double points) override;

  private:
    void setSize(const Reference<css::uno::XInterface>& text, float points) const;

    std::shared_ptr<WriterContent> content_;
};

}  // namespace mergeloom::libreoffice
