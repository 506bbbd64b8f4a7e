#pragma once

#include "base/FileStore.h"
#include "office/model/letters/LetterTemplate.h"

#include <memory>
#include <string>

namespace mergeloom::embedded {

/// Opens a Word document as a template. The file store must outlive the template and its letters. Raises
/// kFileCouldNotBeRead for a file that is not a Word document or cannot be edited safely, and kNotAvailable
/// if its text contains the characters that mark places.
std::unique_ptr<letters::LetterTemplate> openLetterTemplate(FileStore& files, const std::string& path);

}  // namespace mergeloom::embedded
