#pragma once

#include "office/libreoffice/word/WriterContent.h"
#include "office/model/word/Table.h"

#include <memory>

namespace mergeloom::libreoffice {

/// Returns the tables of a range, or without one those of the document's body. They are looked for when they
/// are asked for.
word::TablesPtr tablesOf(const std::shared_ptr<WriterContent>& content, const RangePtr& range = nullptr);

}  // namespace mergeloom::libreoffice
