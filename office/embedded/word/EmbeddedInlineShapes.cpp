#include "office/embedded/word/EmbeddedInlineShapes.h"

#include "office/embedded/word/RangeCounts.h"

namespace mergeloom::embedded {

int EmbeddedInlineShapes::Count() {
    return RangeCounts(span_->story(), span_->start(), span_->end()).inlineShapes();
}

void EmbeddedInlineShapes::AddPicture(const std::string& fileName) {
    const CharacterPosition start = span_->start();
    const CharacterCount inserted = content_->replaceByPicture(span_->story(), start, span_->end(), fileName);
    span_->set(start, start + inserted);
}

}  // namespace mergeloom::embedded
