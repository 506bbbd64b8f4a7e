#pragma once

#include "office/libreoffice/excel/CalcApplication.h"
#include "office/model/excel/Workbooks.h"

#include <memory>
#include <string>
#include <utility>

namespace mergeloom::libreoffice {

class CalcWorkbooks final : public excel::Workbooks {
  public:
    explicit CalcWorkbooks(std::shared_ptr<CalcApplication> application)
        : application_(std::move(application)) {}

    int Count() override { return static_cast<int>(application_->workbooks().size()); }
    excel::WorkbookPtr Add(const std::string& templatePath) override {
        return application_->add(templatePath);
    }
    excel::WorkbookPtr Open(const std::string& fileName) override { return application_->open(fileName); }
    excel::WorkbookPtr Item(int number) override { return application_->workbooks()[indexOf(number)]; }

  private:
    std::shared_ptr<CalcApplication> application_;
};

}  // namespace mergeloom::libreoffice
