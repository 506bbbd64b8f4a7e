#pragma once

#include "office/embedded/word/WordContent.h"
#include "office/graft/WordExport.h"

namespace mergeloom::graft {

/// Returns the original's story that an office exported as the given one: the body, or the only other story
/// of its kind with the same text. An office may write one header several times, so several exported stories
/// may have the same original. Raises Refusal if there is no such story, or more than one.
embedded::Story& originalOf(embedded::WordContent& original, const ReadStory& exported);

}  // namespace mergeloom::graft
