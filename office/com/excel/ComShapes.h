#pragma once

#include "office/com/excel/ComExcelModel.h"
#include "office/model/excel/Forward.h"

namespace mergeloom::com {

/// Return the objects and the pictures of a sheet's drawing layer.
excel::ShapesPtr makeShapes(const ComExcelModelPtr& model, const AutomationObject& sheet);
excel::PicturesPtr makePictures(const ComExcelModelPtr& model, const AutomationObject& sheet);

}  // namespace mergeloom::com
