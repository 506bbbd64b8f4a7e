#pragma once

#include "base/Units.h"
#include "office/opc/WordNames.h"

#include <string>

namespace mergeloom::embedded {

/// A picture in the text (ECMA-376 Part 1, 20.4.2.8).
struct InlinePicture {
    std::string relationshipId;
    std::string name;  ///< for users who cannot see the picture
    std::int64_t drawingId = 0;
    Emu width;
    Emu height;
};

/// Scales down a picture that is wider than the text area.
void fitInto(Emu textArea, InlinePicture& picture);

/// Returns the XML of the drawing that shows the picture, for a part with those names.
std::string drawingXml(const InlinePicture& picture, const opc::WordNames& names);
/// Returns the XML of a run with the picture, for a part with those names.
std::string pictureRunXml(const InlinePicture& picture, const opc::WordNames& names);

}  // namespace mergeloom::embedded
