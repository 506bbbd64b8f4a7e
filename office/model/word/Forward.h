#pragma once

#include <memory>

/// The part of Word's object model that the product calls, under Word's own member names. An office implements
/// these interfaces over its own engine; callers hold its objects as a late-bound client would, by counted
/// reference, and every call may raise an AutomationError.
namespace mergeloom::word {

class Application;
class Bookmark;
class Bookmarks;
class Cells;
class Document;
class Documents;
class Fields;
class InlineShapes;
class Range;
class Selection;
class ShapeRange;
class Tables;
class UndoRecord;

using ApplicationPtr = std::shared_ptr<Application>;
using BookmarkPtr = std::shared_ptr<Bookmark>;
using BookmarksPtr = std::shared_ptr<Bookmarks>;
using CellsPtr = std::shared_ptr<Cells>;
using DocumentPtr = std::shared_ptr<Document>;
using DocumentsPtr = std::shared_ptr<Documents>;
using FieldsPtr = std::shared_ptr<Fields>;
using InlineShapesPtr = std::shared_ptr<InlineShapes>;
using RangePtr = std::shared_ptr<Range>;
using SelectionPtr = std::shared_ptr<Selection>;
using ShapeRangePtr = std::shared_ptr<ShapeRange>;
using TablesPtr = std::shared_ptr<Tables>;
using UndoRecordPtr = std::shared_ptr<UndoRecord>;

/// What every interface of the model is: used through references, never copied.
class Object {
  public:
    Object() = default;
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    virtual ~Object() = default;
};

}  // namespace mergeloom::word
