#pragma once

#include "office/libreoffice/session/LibreOfficeSession.h"
#include "office/model/excel/Enumerations.h"
#include "office/model/word/Enumerations.h"

#include <string>

namespace mergeloom::libreoffice {

/// Compares what was written of a document, given as bytes for the path, with the document as it stands, and
/// raises DifferingCopy where texts or places differ. Formats that hold no places (texts, web pages, PDF) are
/// not compared.
void checkWritten(LibreOfficeSession& session, const DocumentReference& document, const std::string& path,
                  word::WdSaveFormat format, const std::string& bytes);
/// The same for workbooks: the texts of cells that are no formulas, and names.
void checkWritten(LibreOfficeSession& session, const DocumentReference& document, const std::string& path,
                  excel::XlFileFormat format, const std::string& bytes);

}  // namespace mergeloom::libreoffice
