#pragma once

#include "droppers/CNodeDropperField.h"
#include "droppers/DropContext.h"
#include "droppers/StructureNodes.h"
#include "office/model/excel/Workbook.h"
#include "office/model/word/Document.h"
#include "xml/TreeView.h"

#include <cstdint>
#include <string>

namespace mergeloom {

/// Drops a whole form: its controls one after the other, each with its caption in a paragraph of its own.
class CNodeDropperForm {
  public:
    explicit CNodeDropperForm(DropContext& context) : context_(context) {}

    /// Drops at the selection. Returns true when any control was dropped. The base name is the prefix of the
    /// places of a subform. Without keys all controls are dropped in tree order, otherwise those that the
    /// keys name, in the keys' order. An error ends the drop; a control that is refused is left out.
    bool FormDrop(const TreeNode& robjTVNode, const word::DocumentPtr& robjDocument,
                  const std::string& baseName, const FieldKeys* rcolFields);

    /// Drops at the active cell: captions in one column, places to the right of them. Returns the number of
    /// rows used, 0 when nothing was written. Then makes the cell below the active one, if there is one.
    int xlFormDrop(const TreeNode& robjTVNode, const excel::WorkbookPtr& robjWorkbook,
                   const std::string& baseName, const FieldKeys* rcolFields);

  private:
    bool dropControls(const TreeNode& form, const ControlNodes& controls, const std::string& prefix,
                      const word::DocumentPtr& document);
    int xlDropControls(const TreeNode& form, const ControlNodes& controls, const std::string& prefix,
                       const excel::WorkbookPtr& workbook);
    FieldDropArguments argumentsFor(const TreeNode& control, const std::string& prefix) const;
    void advance(const TreeNode& form, std::int64_t handled, std::int64_t total);

    DropContext& context_;
};

}  // namespace mergeloom
