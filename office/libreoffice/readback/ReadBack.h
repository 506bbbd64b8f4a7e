#pragma once

#include "office/libreoffice/readback/ContentDigest.h"
#include "office/libreoffice/session/LibreOfficeSession.h"

#include <string>

namespace mergeloom::libreoffice {

/// Returns the first difference as a clause for a message; empty if there is none.
std::string difference(const ContentDigest& expected, const ContentDigest& written);

/// Compares the written bytes of a document with the open document. Raises DifferingCopy if texts or
/// bookmarks differ; of a workbook the texts of cells without formulas, and names. Formats without bookmarks
/// (texts, web pages, PDF) are not compared.
void checkWritten(LibreOfficeSession& session, const DocumentReference& document, const std::string& path,
                  SaveFormat format, const std::string& bytes);

}  // namespace mergeloom::libreoffice
