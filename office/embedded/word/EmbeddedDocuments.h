#pragma once

#include "office/embedded/word/EmbeddedApplication.h"
#include "office/model/word/Document.h"

#include <memory>
#include <string>
#include <utility>

namespace mergeloom::embedded {

class EmbeddedDocuments final : public word::Documents {
  public:
    explicit EmbeddedDocuments(std::shared_ptr<EmbeddedApplication> application)
        : application_(std::move(application)) {}

    int Count() override { return static_cast<int>(application_->documents().size()); }
    word::DocumentPtr Add(const std::string& templatePath) override {
        return application_->add(templatePath);
    }
    word::DocumentPtr Open(const std::string& fileName) override { return application_->open(fileName); }
    word::DocumentPtr Item(int number) override { return application_->documents()[indexOf(number)]; }

  private:
    std::shared_ptr<EmbeddedApplication> application_;
};

}  // namespace mergeloom::embedded
