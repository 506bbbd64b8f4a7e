#pragma once

#include "office/com/automation/AutomationObject.h"
#include "office/model/excel/Forward.h"

namespace mergeloom::com {

/// Return the objects and the pictures of a sheet's drawing layer.
excel::ShapesPtr makeShapes(const AutomationObject& application, const AutomationObject& sheet);
excel::PicturesPtr makePictures(const AutomationObject& application, const AutomationObject& sheet);

}  // namespace mergeloom::com
