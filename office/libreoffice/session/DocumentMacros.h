#pragma once

#include "office/libreoffice/session/LibreOfficeFiles.h"

namespace mergeloom::libreoffice {

/// Returns whether the document holds macros, also when only its file has them and the office has not read
/// them.
bool holdsMacros(OfficeConnection& connection, const DocumentReference& document);

/// Raises kFileCouldNotBeSaved, with a sentence that names the file, for a document with macros that is to be
/// saved in a format without them.
void refuseToLoseMacros(OfficeConnection& connection, const DocumentReference& document,
                        const std::string& path, word::WdSaveFormat format);
void refuseToLoseMacros(OfficeConnection& connection, const DocumentReference& document,
                        const std::string& path, excel::XlFileFormat format);

}  // namespace mergeloom::libreoffice
