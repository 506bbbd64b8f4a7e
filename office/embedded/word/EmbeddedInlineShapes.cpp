#include "office/embedded/word/EmbeddedInlineShapes.h"

#include "office/embedded/word/RangeContents.h"

namespace mergeloom::embedded {

int EmbeddedInlineShapes::Count() {
    return RangeContents(span_->story(), span_->start(), span_->end()).inlineShapes();
}

void EmbeddedInlineShapes::AddPicture(const std::string& fileName) {
    const CharacterPosition start = span_->start();
    const CharacterCount inserted = content_->replaceByPicture(span_->story(), start, span_->end(), fileName);
    span_->set(start, start + inserted);
}

}  // namespace mergeloom::embedded
