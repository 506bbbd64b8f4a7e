#pragma once

#include "base/FileStore.h"
#include "base/Units.h"
#include "office/libreoffice/session/OfficeConnection.h"

#include <com/sun/star/graphic/XGraphic.hpp>
#include <string>

namespace mergeloom::libreoffice {

/// A picture that the office has read.
struct CalcGraphic {
    Reference<css::graphic::XGraphic> graphic;
    Points width, height;  ///< the natural ones; 96 dots per inch where the file says nothing
};

/// Raises kFileCouldNotBeRead with a sentence that names the file when it is no picture.
CalcGraphic readGraphic(OfficeConnection& connection, FileStore& files, const std::string& fileName);

}  // namespace mergeloom::libreoffice
