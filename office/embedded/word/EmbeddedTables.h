#pragma once

#include "office/embedded/word/WordContent.h"
#include "office/model/word/Table.h"

#include <memory>

namespace mergeloom::embedded {

/// Returns the tables that a range touches; inside a table, that table. They are only searched for when they
/// are needed, so that adding a table does not search the whole story.
word::TablesPtr tablesIn(const std::shared_ptr<WordContent>& content, const TrackedRange& range);

/// Returns the cells that a range in a table touches. Raises kMemberNotFound outside of tables.
word::CellsPtr cellsIn(const std::shared_ptr<WordContent>& content, const TrackedRange& range);

}  // namespace mergeloom::embedded
