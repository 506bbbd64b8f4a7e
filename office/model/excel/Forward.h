#pragma once

#include "office/model/Object.h"
#include "office/model/Undo.h"

#include <memory>

/// The part of Excel's object model that the product calls, under Excel's own member names. An office
/// implements these interfaces over its own engine; callers hold its objects as a late-bound client would, by
/// counted reference, and every call may raise an AutomationError.
namespace mergeloom::excel {

using model::Counted;
using model::Object;
using model::UndoRecord;
using model::UndoRecordPtr;

class Application;
class Columns;
class DefinedName;
class Names;
class Picture;
class Pictures;
class Range;
class Selection;
class Shape;
class Shapes;
class Workbook;
class Workbooks;
class Worksheet;
class Worksheets;

using ApplicationPtr = std::shared_ptr<Application>;
using ColumnsPtr = std::shared_ptr<Columns>;
using CountedPtr = std::shared_ptr<Counted>;
using DefinedNamePtr = std::shared_ptr<DefinedName>;
using NamesPtr = std::shared_ptr<Names>;
using PicturePtr = std::shared_ptr<Picture>;
using PicturesPtr = std::shared_ptr<Pictures>;
using RangePtr = std::shared_ptr<Range>;
using SelectionPtr = std::shared_ptr<Selection>;
using ShapePtr = std::shared_ptr<Shape>;
using ShapesPtr = std::shared_ptr<Shapes>;
using WorkbookPtr = std::shared_ptr<Workbook>;
using WorkbooksPtr = std::shared_ptr<Workbooks>;
using WorksheetPtr = std::shared_ptr<Worksheet>;
using WorksheetsPtr = std::shared_ptr<Worksheets>;

}  // namespace mergeloom::excel
