#pragma once

#include "office/model/excel/Enumerations.h"
#include "office/model/word/Enumerations.h"

#include <functional>
#include <string>

/// Formats of files by the extensions of their paths, in any letter case.
namespace mergeloom {

bool hasWordExtension(const std::string& path);
/// Returns the format; 0 for an extension that Word does not know.
word::WdSaveFormat wordFormatOf(const std::string& path);
/// Returns the first of the formats with the path's extension that can be written; when none can, the same as
/// wordFormatOf.
word::WdSaveFormat wordFormatToWrite(const std::string& path,
                                     const std::function<bool(word::WdSaveFormat)>& canWrite);
/// Returns true when the file has to be converted for an office that supports only Open Packaging.
bool isForeignWordFile(const std::string& path);

bool hasExcelExtension(const std::string& path);
/// Returns the format; kNoExcelFormat for an extension that Excel does not know.
excel::XlFileFormat excelFormatOf(const std::string& path);
excel::XlFileFormat excelFormatToWrite(const std::string& path,
                                       const std::function<bool(excel::XlFileFormat)>& canWrite);
bool isForeignExcelFile(const std::string& path);

/// Returns true when the file is a workbook's by its name. An extension of both families, and any other name,
/// counts as Word's.
bool isWorkbookFile(const std::string& path);

}  // namespace mergeloom
