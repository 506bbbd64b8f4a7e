#pragma once

#include "app/SeenControls.h"
#include "office/model/letters/LetterTemplate.h"

#include <string>
#include <vector>

namespace mergeloom {

/// The names for the comparison of a template with its data.
struct TemplateNaming {
    const std::string& object;                  ///< the text of the object whose records fill the template
    const std::vector<std::string>& unknown;    ///< places that no control of the object makes
    const std::vector<std::string>& ambiguous;  ///< names that several controls make
};

/// Returns the differences between the places of a template and the data of all records, as sentences.
std::vector<std::string> fillDifferences(const letters::Letters& letters, const SeenControls& seen,
                                         const TemplateNaming& naming);

}  // namespace mergeloom
