#pragma once

#include "droppers/CNodeDropperField.h"
#include "droppers/DropContext.h"
#include "droppers/modExcelNormalizeName.h"
#include "office/model/excel/Workbook.h"
#include "office/model/word/Document.h"
#include "xml/TreeView.h"
#include "xml/XmlNode.h"

#include <string>

namespace mergeloom {

/// The droppers of one kind of document, chosen by what a node represents. Each member returns true when
/// something was dropped.
class DropRoutes {
  public:
    virtual ~DropRoutes() = default;

    virtual bool labelDrop(const XmlNode& control) = 0;
    /// Drops a control; sets the name of the table that a table field belongs to.
    virtual bool fieldDrop(FieldDropArguments arguments) = 0;
    /// Drops an object or a subform, which has that name.
    virtual bool formDrop(const TreeNode& node, const std::string& name) = 0;
    virtual bool tableDrop(const TreeNode& node, const std::string& name) = 0;
    virtual bool labelDocumentDrop(const TreeNode& node, const std::string& name) = 0;
};

/// Drops at the selection of a Word document.
class WordDropRoutes final : public DropRoutes {
  public:
    static constexpr NameRule kNameRule = WordNormalizeName;

    WordDropRoutes(DropContext& context, const word::DocumentPtr& document)
        : context_(context), document_(document) {}

    bool labelDrop(const XmlNode& control) override;
    bool fieldDrop(FieldDropArguments arguments) override;
    bool formDrop(const TreeNode& node, const std::string& name) override;
    bool tableDrop(const TreeNode& node, const std::string& name) override;
    bool labelDocumentDrop(const TreeNode& node, const std::string& name) override;

  private:
    DropContext& context_;
    const word::DocumentPtr& document_;
};

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
