#pragma once

#include "office/model/excel/Range.h"

namespace mergeloom {

/// Makes the columns of a block as wide as its texts need. A column that holds the whole width of an object
/// on the sheet does not become narrower, since the object would cover the cells beside it.
void fitColumns(excel::Range& block);

}  // namespace mergeloom
