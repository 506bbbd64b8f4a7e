#pragma once

#include "office/model/excel/Enumerations.h"
#include "office/model/word/Enumerations.h"

#include <functional>
#include <string>

/// The formats that files have by the extensions of their paths, whose letters may be capitals.
namespace mergeloom {

bool hasWordExtension(const std::string& path);
/// Format 0 for an extension that Word does not know.
word::WdSaveFormat wordFormatOf(const std::string& path);
/// Of the formats with the path's extension the first that can be written; where none can, as above.
word::WdSaveFormat wordFormatToWrite(const std::string& path,
                                     const std::function<bool(word::WdSaveFormat)>& canWrite);
/// Whether the file has to be converted for an office that knows nothing but Open Packaging.
bool isForeignWordFile(const std::string& path);

bool hasExcelExtension(const std::string& path);
/// kNoExcelFormat for an extension that Excel does not know.
excel::XlFileFormat excelFormatOf(const std::string& path);
excel::XlFileFormat excelFormatToWrite(const std::string& path,
                                       const std::function<bool(excel::XlFileFormat)>& canWrite);
bool isForeignExcelFile(const std::string& path);

/// Returns whether the file is a workbook's by its name. What both families use, and any other name, is taken
/// for Word's.
bool isWorkbookFile(const std::string& path);

}  // namespace mergeloom
