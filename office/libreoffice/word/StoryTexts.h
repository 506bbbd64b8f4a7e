#pragma once

#include "office/libreoffice/word/WriterModel.h"

#include <string>
#include <vector>

namespace mergeloom::libreoffice {

/// A story of a document with its name as Range.storyName gives it.
struct Story {
    std::string name;
    TextReference text;
};

/// Returns the stories of a document: the body, headers and footers, notes and text boxes. Those of each kind
/// are numbered.
std::vector<Story> storiesOf(const WriterModel& model);

}  // namespace mergeloom::libreoffice
