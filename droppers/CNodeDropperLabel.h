#pragma once

#include "droppers/DropReports.h"
#include "office/model/excel/Workbook.h"
#include "office/model/word/Document.h"
#include "xml/XmlNode.h"

namespace mergeloom {

/// Types the caption of a structure node as plain text.
class CNodeDropperLabel {
  public:
    explicit CNodeDropperLabel(DropReports& reports) : reports_(reports) {}

    /// Types the caption over the selection and tells whether a text was typed. With vfAddTab the caption
    /// ends in a colon and a blank.
    bool LabelDrop(const XmlNode& robjXMLNode, const word::DocumentPtr& robjDocument, bool vfAddTab);

    /// Writes the caption as it is into every selected cell and tells whether there was one.
    bool xlLabelDrop(const XmlNode& robjXMLNode, const excel::WorkbookPtr& robjWorkbook);

  private:
    DropReports& reports_;
};

}  // namespace mergeloom
