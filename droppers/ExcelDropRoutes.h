#pragma once

#include "droppers/DropContext.h"
#include "droppers/DropRoutes.h"
#include "droppers/modExcelNormalizeName.h"
#include "office/model/excel/Workbook.h"

namespace mergeloom {

/// Drops at the active cell of a workbook.
class ExcelDropRoutes final : public DropRoutes {
  public:
    static constexpr NameRule kNameRule = ExcelNormalizeName;

    ExcelDropRoutes(DropContext& context, const excel::WorkbookPtr& workbook)
        : context_(context), workbook_(workbook) {}

    bool labelDrop(const XmlNode& control) override;
    bool fieldDrop(FieldDropArguments arguments) override;
    bool formDrop(const TreeNode& node, const std::string& name) override;
    bool tableDrop(const TreeNode& node, const std::string& name) override;
    bool labelDocumentDrop(const TreeNode& node, const std::string& name) override;

  private:
    DropContext& context_;
    const excel::WorkbookPtr& workbook_;
};

}  // namespace mergeloom
