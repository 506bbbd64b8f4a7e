#include "droppers/SelectionCheck.h"

#include "office/model/word/Bookmarks.h"
#include "office/model/word/Counted.h"
#include "office/model/word/Fields.h"
#include "office/model/word/InlineShapes.h"
#include "office/model/word/Tables.h"

namespace mergeloom {

bool takesCompositeDrop(word::Selection& selection) {
    const int held = selection.Tables()->Count() + selection.Bookmarks()->Count() +
                     selection.Fields()->Count() + selection.InlineShapes()->Count() +
                     selection.ShapeRange()->Count();
    return held == 0;
}

}  // namespace mergeloom
