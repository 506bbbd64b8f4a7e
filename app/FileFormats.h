#pragma once

#include "office/model/excel/Enumerations.h"
#include "office/model/word/Enumerations.h"

#include <string>

/// The formats that files have by the extensions of their paths, whose letters may be capitals.
namespace mergeloom {

bool hasWordExtension(const std::string& path);
/// Format 0 for an extension that Word does not know.
word::WdSaveFormat wordFormatOf(const std::string& path);

bool hasExcelExtension(const std::string& path);
/// kNoExcelFormat for an extension that Excel does not know.
excel::XlFileFormat excelFormatOf(const std::string& path);

}  // namespace mergeloom
