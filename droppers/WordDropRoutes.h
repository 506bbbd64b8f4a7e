#pragma once

#include "droppers/DropContext.h"
#include "droppers/DropRoutes.h"
#include "office/model/word/Document.h"

namespace mergeloom {

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

}  // namespace mergeloom
