#pragma once

#include "droppers/DropContext.h"
#include "office/model/excel/Workbook.h"
#include "office/model/word/Document.h"
#include "xml/XmlNode.h"

namespace mergeloom {

/// The text of a typed caption: its own, or followed by a colon and a blank.
enum class CaptionStyle { Plain, Label };

/// Types the caption of a structure node as plain text.
class CNodeDropperLabel {
  public:
    explicit CNodeDropperLabel(DropReports& reports) : reports_(reports) {}

    /// Types the caption over the selection. Returns true when a text was typed. With vfAddTab the caption
    /// ends in a colon and a blank.
    bool LabelDrop(const XmlNode& robjXMLNode, const word::DocumentPtr& robjDocument, bool vfAddTab);
    /// Types the caption of a field, with a colon and a blank, where the field may be dropped.
    bool typeLabel(const XmlNode& control, word::Selection& selection);

    /// Writes the unchanged caption into every selected cell. Returns false when there is no caption.
    bool xlLabelDrop(const XmlNode& robjXMLNode, const excel::WorkbookPtr& robjWorkbook);

  private:
    bool typeCaption(const XmlNode& control, word::Selection& selection, CaptionStyle style);

    DropReports& reports_;
};

}  // namespace mergeloom
