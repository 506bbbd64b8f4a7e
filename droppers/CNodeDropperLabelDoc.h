#pragma once

#include "droppers/DropContext.h"
#include "office/model/word/Document.h"
#include "xml/TreeView.h"

#include <string>

namespace mergeloom {

/// Drops an object's controls into a sheet of labels: plain places one after the other, without captions.
class CNodeDropperLabelDoc {
  public:
    explicit CNodeDropperLabelDoc(DropContext& context) : context_(context) {}

    /// Drops at the selection. Returns true when any control was dropped. Without keys all controls except
    /// subforms are dropped in tree order, otherwise those that the keys name, in the keys' order. An error
    /// ends the drop; a control that is refused is left out.
    bool LabelDocumentDrop(const TreeNode& robjTVNode, const word::DocumentPtr& robjDocument,
                           const std::string& baseName, const FieldKeys* rcolFields);

  private:
    bool dropControls(const TreeNode& object, const word::DocumentPtr& document, const std::string& prefix,
                      const FieldKeys* keys);

    DropContext& context_;
};

}  // namespace mergeloom
