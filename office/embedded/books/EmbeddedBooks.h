#pragma once

#include "base/FileStore.h"
#include "office/model/letters/LetterTemplate.h"

#include <memory>
#include <string>

namespace mergeloom::embedded {

/// Opens a workbook as a template. The file store must outlive the template and its letters. Raises
/// kFileCouldNotBeRead for a file that is not a workbook or cannot be edited safely.
std::unique_ptr<letters::LetterTemplate> openBookTemplate(FileStore& files, const std::string& path);
/// Opens the bytes of a workbook in the same way; the path is only named in errors.
std::unique_ptr<letters::LetterTemplate> openBookTemplate(FileStore& files, const std::string& path,
                                                          std::string bytes);

}  // namespace mergeloom::embedded
