#pragma once

#include "office/model/excel/Workbook.h"
#include "ui/designer/HostedOffice.h"
#include "ui/designer/TemplateOffice.h"

namespace mergeloom {

/// Opens and saves Excel's templates in the window.
class ExcelTemplates final : public TemplateOffice {
  public:
    explicit ExcelTemplates(HostAccess& access) : access_(access) {}

    [[nodiscard]] const TemplateTexts& texts() const override;
    bool createNew() override;
    std::string fileToOpen(const std::string& path) override { return path; }
    void setUpView() override;
    void restoreView() override {}
    model::OfficeDocument* document() override;
    std::vector<OfferedFormat> templateFormats(FormatUse use) override;
    [[nodiscard]] const char* defaultExtension() const override { return "xltx"; }
    [[nodiscard]] bool knowsExtensionOf(const std::string& path) const override;
    [[nodiscard]] bool keepsPlaces(const std::string& path) const override;
    [[nodiscard]] bool losesPassword(const std::string& path) override;
    void saveAs(const std::string& path) override;
    void exportCopy(const std::string& path) override;

  private:
    void selectFirstCell();
    excel::WorkbookPtr hosted();

    HostAccess& access_;
    excel::WorkbookPtr workbook_;
};

}  // namespace mergeloom
