#pragma once

#include "app/MappingTarget.h"
#include "app/OfficeFormats.h"
#include "app/ScopedOffice.h"
#include "base/ErrorHandler.h"
#include "office/model/excel/Workbook.h"

#include <optional>

namespace mergeloom {

/// Excel and the workbook that a mapping makes in it.
class MappedExcel final : public MappingTarget {
  public:
    /// All arguments have to outlive it.
    MappedExcel(const ExcelStarter& startExcel, const OfficeFormats& formats, ErrorHandler& errors)
        : startExcel_(startExcel), formats_(formats), errors_(errors) {}

    [[nodiscard]] std::string name() const override { return "Excel"; }
    [[nodiscard]] bool makesLabels() const override { return false; }
    [[nodiscard]] std::string templateExtension() const override { return "xltx"; }
    [[nodiscard]] bool knowsExtensionOf(const std::string& path) const override;
    [[nodiscard]] std::string formatNameOf(const std::string& path) const override;
    [[nodiscard]] std::string refusalToSave(const std::string& path) const override;
    [[nodiscard]] std::string refusalToOpen(const std::string& path) const override;
    [[nodiscard]] bool isForeign(const std::string& path) const override;
    void start() override { office_.emplace(startExcel_(), errors_); }
    [[nodiscard]] bool isStarted() const override { return office_.has_value(); }
    void addDocument(const std::string& templatePath) override;
    void openDocument(const std::string& path) override;
    void beginAt(const std::string& place) override;
    bool takesDrops() override { return true; }
    bool drop(CNodeDropper& dropper, const MappedObject& object) override;
    model::OfficeDocument& document() override { return *workbook_; }
    void saveAs(const std::string& path) override;
    void closeDocument() override;

  private:
    const ExcelStarter& startExcel_;
    const OfficeFormats& formats_;
    ErrorHandler& errors_;
    std::optional<ScopedOffice<excel::Application>> office_;
    excel::WorkbookPtr workbook_;
};

}  // namespace mergeloom
