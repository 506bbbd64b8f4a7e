#pragma once

#include "office/embedded/word/WordContent.h"
#include "office/graft/WordExport.h"

namespace mergeloom::graft {

/// Returns the original's story that an office exported as the given one: the body, or the only other story
/// of its kind with the same text. The office may write one header several times, so several of its stories
/// may be one in the original. Raises Refusal when no story or more than one is meant.
embedded::Story& originalOf(embedded::WordContent& original, const ReadStory& exported);

}  // namespace mergeloom::graft
