#pragma once

#include "office/libreoffice/session/LibreOfficeSession.h"
#include "office/model/excel/Enumerations.h"
#include "office/model/word/Enumerations.h"

#include <string>

namespace mergeloom::libreoffice {

/// Compares the written bytes of a document with the open document. Raises DifferingCopy if texts or
/// bookmarks differ. Formats without bookmarks (texts, web pages, PDF) are not compared.
void checkWritten(LibreOfficeSession& session, const DocumentReference& document, const std::string& path,
                  word::WdSaveFormat format, const std::string& bytes);
/// Does the same for a workbook: compares the texts of cells without formulas, and names.
void checkWritten(LibreOfficeSession& session, const DocumentReference& document, const std::string& path,
                  excel::XlFileFormat format, const std::string& bytes);

}  // namespace mergeloom::libreoffice
