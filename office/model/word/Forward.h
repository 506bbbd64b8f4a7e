#pragma once

#include "office/model/Object.h"
#include "office/model/Undo.h"

#include <memory>

/// The part of Word's object model that the product calls, under Word's own member names. An office
/// implements these interfaces over its own engine; callers hold its objects as a late-bound client would, by
/// counted reference, and every call may raise an AutomationError.
namespace mergeloom::word {

using model::Counted;
using model::Object;
using model::UndoRecord;
using model::UndoRecordPtr;

class Application;
class Bookmark;
class Bookmarks;
class Cell;
class Cells;
class Columns;
class Document;
class Documents;
class Field;
class Fields;
class Font;
class InlineShapes;
class MailMerge;
class Range;
class Row;
class Rows;
class Selection;
class ShapeRange;
class Table;
class Tables;
class Window;

using ApplicationPtr = std::shared_ptr<Application>;
using BookmarkPtr = std::shared_ptr<Bookmark>;
using BookmarksPtr = std::shared_ptr<Bookmarks>;
using CellPtr = std::shared_ptr<Cell>;
using CellsPtr = std::shared_ptr<Cells>;
using ColumnsPtr = std::shared_ptr<Columns>;
using DocumentPtr = std::shared_ptr<Document>;
using DocumentsPtr = std::shared_ptr<Documents>;
using FieldPtr = std::shared_ptr<Field>;
using FieldsPtr = std::shared_ptr<Fields>;
using FontPtr = std::shared_ptr<Font>;
using InlineShapesPtr = std::shared_ptr<InlineShapes>;
using MailMergePtr = std::shared_ptr<MailMerge>;
using RangePtr = std::shared_ptr<Range>;
using RowPtr = std::shared_ptr<Row>;
using RowsPtr = std::shared_ptr<Rows>;
using SelectionPtr = std::shared_ptr<Selection>;
using ShapeRangePtr = std::shared_ptr<ShapeRange>;
using TablePtr = std::shared_ptr<Table>;
using TablesPtr = std::shared_ptr<Tables>;
using WindowPtr = std::shared_ptr<Window>;

}  // namespace mergeloom::word
