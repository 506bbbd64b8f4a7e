#pragma once

#include "office/model/excel/Enumerations.h"
#include "office/model/excel/Forward.h"

#include <string>

namespace mergeloom::excel {

class Application : public Object {
  public:
    /// Returns "Microsoft Excel" for every office that implements Excel's object model.
    virtual std::string Name() = 0;
    /// Returns the version of Excel whose formats and calls this office supports, such as "16.0".
    virtual std::string Version() = 0;

    virtual WorkbooksPtr Workbooks() = 0;
    /// Returns the active cell of the active sheet; of merged cells, the first one. Raises
    /// kApplicationDefined when the active sheet has no cells and kNotAvailable when no workbook is open.
    virtual RangePtr ActiveCell() = 0;
    /// Returns the selection of the active sheet.
    virtual SelectionPtr Selection() = 0;
    /// Returns the cells that are in both ranges; null when there are none or the ranges are in different
    /// sheets.
    virtual RangePtr Intersect(Range& first, Range& second) = 0;
    /// Returns the record that makes changes one undo step. Excel's own model has no such member.
    virtual UndoRecordPtr UndoRecord() = 0;
    /// Returns true when this office itself can write the format.
    virtual bool canSaveAs(XlFileFormat format) = 0;

    /// Closes all workbooks without saving them.
    virtual void Quit() = 0;
};

}  // namespace mergeloom::excel
