#pragma once

#include "droppers/DropContext.h"
#include "droppers/DropRoutes.h"
#include "droppers/ObjectLayout.h"
#include "office/model/excel/Workbook.h"
#include "office/model/word/Document.h"
#include "xml/TreeView.h"
#include "xml/XmlNode.h"
#include "xml/modNamedItems.h"

#include <string>
#include <utility>

namespace mergeloom {

/// Determines what a dropped tree node represents and passes it to the matching dropper, in a Word document
/// or a workbook. A drop is one step of the document's undo list; a drop that is refused or fails leaves the
/// document as it was.
class CNodeDropper {
  public:
    /// Without a dialog all fields of an object become columns of its table.
    CNodeDropper(ErrorHandler& errors, Messages& messages, PictureFinder findPicture, Progress& progress,
                 FieldDialog* fieldDialog = nullptr)
        : errors_(errors),
          messages_(messages),
          findPicture_(std::move(findPicture)),
          progress_(progress),
          fieldDialog_(fieldDialog) {}

    /// Drops the node at the document's selection. Returns true when something was dropped.
    bool NodeDrop(const TreeNode& robjTVNode, const word::DocumentPtr& robjDocument,
                  const XmlNodeCollection& rcolXMLNodes, bool vfShowDialog, DocumentType vDocumentType,
                  const FieldKeys* rcolFields);
    /// Drops the node at a workbook's active cell.
    bool NodeDrop(const TreeNode& robjTVNode, const excel::WorkbookPtr& robjWorkbook,
                  const XmlNodeCollection& rcolXMLNodes, bool vfShowDialog, DocumentType vDocumentType,
                  const FieldKeys* rcolFields);

    /// Returns a sentence that names what the last drop searched for in an object and did not find. Empty
    /// when it dropped something or has already informed the user of the reason.
    [[nodiscard]] const std::string& nothingDropped() const { return nothingDropped_; }

    /// Adds a place for an optional blank or line break. A document takes at most 20 of each.
    bool SpecialDrop(DropKind item, const word::DocumentPtr& robjDocument);
    /// Returns false: only Word takes such places.
    static bool SpecialDrop(DropKind item, const excel::WorkbookPtr& robjWorkbook);

  private:
    /// The arguments of one call of NodeDrop.
    struct Drop {
        DropContext& context;
        const TreeNode& node;
        DropRoutes& routes;
    };
    struct FieldOptions {
        bool labelRequired = false;
        bool boundValueUse = false;
    };

    template <class Routes, class DocumentPtr>
    bool dropInto(const DocumentPtr& document, const TreeNode& node, const XmlNodeCollection& xmlNodes,
                  const DropSettings& settings);
    static bool dropNode(const Drop& drop);
    static bool dropKind(const Drop& drop, DropKind kind);
    static bool dropObject(const Drop& drop, const XmlNode& element);
    static bool dropControl(const Drop& drop, const XmlNode& element);
    static bool dropLaidOut(const Drop& drop, const XmlNode& element, ObjectLayout layout);
    static bool dropField(const Drop& drop, const TreeNode& control, const FieldOptions& options);

    ErrorHandler& errors_;
    Messages& messages_;
    PictureFinder findPicture_;
    Progress& progress_;
    FieldDialog* fieldDialog_;
    std::string nothingDropped_;
};

}  // namespace mergeloom
