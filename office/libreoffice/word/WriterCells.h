#pragma once

#include "office/libreoffice/word/WriterContent.h"
#include "office/model/word/Table.h"

#include <memory>

namespace mergeloom::libreoffice {

/// A table of a story.
struct StoryTable {
    std::shared_ptr<WriterContent> content;
    TextReference story;
    TableReference table;

    /// Raises kObjectDeleted after the table was deleted.
    [[nodiscard]] const TableReference& get() const;
};

word::RowsPtr makeRows(const StoryTable& table);

/// Returns the cells that the range touches. Raises kMemberNotFound outside tables.
word::CellsPtr cellsOf(const std::shared_ptr<WriterContent>& content, const TrackedRange& range);

}  // namespace mergeloom::libreoffice
