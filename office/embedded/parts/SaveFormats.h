#pragma once

#include "office/formats/FormatTable.h"
#include "office/opc/Package.h"

#include <string>

/// The formats that the engine writes. Those of one family differ in nothing but the main part's content type
/// and in whether they may hold macros.
namespace mergeloom::embedded {

/// Returns whether the engine writes the format, a number of WdSaveFormat or XlFileFormat.
bool canWrite(DocumentFamily family, int number);

/// Gives the main part the content type of a format. Raises kFileCouldNotBeSaved, and changes nothing, for a
/// format that the engine does not write and for macros in a format that has no place for them.
void setSaveFormat(opc::Package& package, DocumentFamily family, int number, const std::string& fileName);

}  // namespace mergeloom::embedded
