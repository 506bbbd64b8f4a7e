#pragma once

#include "office/libreoffice/session/LibreOfficeFiles.h"

namespace mergeloom::libreoffice {

/// Whether the document holds macros, be it that the office has read them or that only its file has them.
bool holdsMacros(OfficeConnection& connection, const DocumentReference& document);

/// Raises kFileCouldNotBeSaved, with the sentence that names the file, for a document with macros that is to
/// be saved in a format which has no place for them.
void refuseToLoseMacros(OfficeConnection& connection, const DocumentReference& document,
                        const std::string& path, word::WdSaveFormat format);
void refuseToLoseMacros(OfficeConnection& connection, const DocumentReference& document,
                        const std::string& path, excel::XlFileFormat format);

}  // namespace mergeloom::libreoffice
