#pragma once

#include "droppers/CNodeDropperField.h"

namespace mergeloom {

/// Returns whether a place can be named after a control. If not, says why the control is left out.
bool takesName(DropContext& context, const FieldDropArguments& control);

/// Returns whether anything of a subform can be dropped. If not, says which controls are left out and that
/// the subform is. One that has no controls at all is not left out.
bool takesSubform(DropContext& context, const FieldDropArguments& subform);

}  // namespace mergeloom
