#pragma once

#include "droppers/DropContext.h"
#include "office/model/word/Document.h"
#include "xml/TreeView.h"

#include <string>

namespace mergeloom {

/// Drops a whole form: its controls one after the other, each with its caption, in a paragraph of its own.
class CNodeDropperForm {
  public:
    explicit CNodeDropperForm(DropContext& context) : context_(context) {}

    /// Drops at the selection and tells whether any control was dropped. The base name is the prefix of the
    /// places of a subform. Without keys all controls are dropped in tree order, else those that the keys
    /// name, in the keys' order. An error ends the drop; a control that is refused is left out.
    bool FormDrop(const TreeNode& robjTVNode, const word::DocumentPtr& robjDocument,
                  const std::string& baseName, const FieldKeys* rcolFields);

  private:
    bool dropControls(const TreeNode& form, const word::DocumentPtr& document, const std::string& prefix,
                      const FieldKeys* keys);

    DropContext& context_;
};

}  // namespace mergeloom
