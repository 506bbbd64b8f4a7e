#pragma once

#include "office/libreoffice/word/WriterContent.h"
#include "office/model/word/Fields.h"

#include <memory>

namespace mergeloom::libreoffice {

/// Returns the fields whose places are in the range, in order.
word::FieldsPtr fieldsOf(const std::shared_ptr<WriterContent>& content, const TrackedRange& range);

/// Returns the fields of all stories.
word::FieldsPtr fieldsOf(const std::shared_ptr<WriterContent>& content);

word::MailMergePtr makeMailMerge(const std::shared_ptr<WriterContent>& content);

}  // namespace mergeloom::libreoffice
