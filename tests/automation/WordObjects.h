#pragma once

#include "automation/DoubleObject.h"
#include "office/model/word/Forward.h"

/// The objects of a document under Word's own names. Each has a reference to its document.
namespace mergeloom::automation {

DispatchPtr wordBookmarks(const word::BookmarksPtr& bookmarks, const word::DocumentPtr& document);
DispatchPtr wordCells(const word::CellsPtr& cells, const word::DocumentPtr& document);
DispatchPtr wordFields(const word::FieldsPtr& fields, const word::DocumentPtr& document);
DispatchPtr wordInlineShapes(const word::InlineShapesPtr& shapes);
DispatchPtr wordRange(const word::RangePtr& range, const word::DocumentPtr& document);
DispatchPtr wordSelection(const word::SelectionPtr& selection, const word::DocumentPtr& document);
DispatchPtr wordTables(const word::TablesPtr& tables, const word::DocumentPtr& document);

/// The stories of a document: the body, and the others that have bookmarks or fields.
DispatchPtr wordStoryRanges(const word::DocumentPtr& document);
/// Returns the number of a story's type (WdStoryType) by its name, such as "header 1".
int storyTypeOf(const std::string& name);
/// Returns the next story of the same type, or null.
DispatchPtr nextStory(const std::string& name, const word::DocumentPtr& document);

}  // namespace mergeloom::automation
