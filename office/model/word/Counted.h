#pragma once

#include "office/model/word/Forward.h"

namespace mergeloom::word {

using model::Counted;

/// The floating shapes whose anchors lie in the range.
class ShapeRange : public Counted {};
/// The columns of a table.
class Columns : public Counted {};

}  // namespace mergeloom::word
