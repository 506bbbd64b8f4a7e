#include "office/embedded/word/EmbeddedInlineShapes.h"

#include "office/embedded/word/RangeCounts.h"

namespace mergeloom::embedded {

int EmbeddedInlineShapes::Count() {
    return RangeCounts(span_.story(), span_.start(), span_.end()).inlineShapes();
}

void EmbeddedInlineShapes::AddPicture(const std::string&) {}

}  // namespace mergeloom::embedded
