#pragma once

#include "office/model/excel/Enumerations.h"
#include "office/model/excel/Forward.h"

#include <string>

namespace mergeloom::excel {

class Application : public Object {
  public:
    /// "Microsoft Excel" for every office that plays Excel's part.
    virtual std::string Name() = 0;
    /// The version of Excel whose formats and calls this office answers for, such as "16.0".
    virtual std::string Version() = 0;

    virtual WorkbooksPtr Workbooks() = 0;
    /// The active cell of the active sheet; in merged cells the first of them. Raises kApplicationDefined
    /// when the active sheet has no cells and kNotAvailable when no workbook is open.
    virtual RangePtr ActiveCell() = 0;
    /// What is selected in the active sheet.
    virtual SelectionPtr Selection() = 0;
    /// The cells that both ranges hold; none when they share none or lie in different sheets.
    virtual RangePtr Intersect(Range& first, Range& second) = 0;
    /// Excel's own model has no such member: an office that cannot take a step back still counts it.
    virtual UndoRecordPtr UndoRecord() = 0;
    /// Whether this office itself can write the format.
    virtual bool canSaveAs(XlFileFormat format) = 0;

    /// Closes all workbooks without saving them.
    virtual void Quit() = 0;
};

}  // namespace mergeloom::excel
