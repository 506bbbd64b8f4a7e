#pragma once

#include "base/Units.h"
#include "office/opc/WordNames.h"

#include <string>

namespace mergeloom::embedded {

/// What the drawing of a picture in the text says (ECMA-376 Part 1, 20.4.2.8).
struct InlinePicture {
    std::string relationshipId;
    std::string name;  ///< shown to users who cannot see the picture
    std::int64_t drawingId = 0;
    Emu width;
    Emu height;
};

/// Makes a picture smaller, keeping its proportions, when it is wider than the text area.
void fitInto(Emu textArea, InlinePicture& picture);

/// A run that holds the picture, as XML for a part with those names.
std::string pictureRunXml(const InlinePicture& picture, const opc::WordNames& names);

}  // namespace mergeloom::embedded
