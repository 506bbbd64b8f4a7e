#pragma once

#include "office/libreoffice/word/Needle.h"
#include "office/libreoffice/word/WriterModel.h"

#include <string>

namespace mergeloom::libreoffice {

/// The name of a story other than the body: its kind and its number among those of the kind, such as "header
/// 1".
std::string storyNameOf(const WriterModel& model, const TextReference& text);

}  // namespace mergeloom::libreoffice
