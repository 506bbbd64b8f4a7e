#pragma once

#include "office/com/automation/AutomationObject.h"

#include <string>

namespace mergeloom::com {

/// Returns the name of the story of a range, as Range::storyName has it. Notes and comments of one kind share
/// a story in Word, so all of them are number 1.
std::string storyNameOf(const AutomationObject& range);

/// Returns the first range of each story of a document: of the body, and of each header, text box and so on.
std::vector<AutomationObject> storiesOf(const AutomationObject& document);

}  // namespace mergeloom::com
