#pragma once

#include "office/embedded/word/WordContent.h"
#include "office/model/word/Fields.h"

#include <memory>

namespace mergeloom::embedded {

/// Returns the fields that begin in a range.
word::FieldsPtr fieldsIn(const std::shared_ptr<WordContent>& content, const TrackedRange& range);

/// Returns the fields of all stories.
word::FieldsPtr fieldsOf(const std::shared_ptr<WordContent>& content);

/// Returns those of them that serve a mail merge.
word::FieldsPtr mailMergeFieldsOf(const std::shared_ptr<WordContent>& content);

}  // namespace mergeloom::embedded
