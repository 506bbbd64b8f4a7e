#pragma once

#include "office/opc/Package.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace mergeloom::opc {

/// What may still be done in a protected document (ECMA-376 Part 1, 17.15.1.29). Protection that is not
/// enforced forbids nothing.
enum class DocumentProtection : std::uint8_t { None, ReadOnly, Comments, TrackedChanges, Forms };

/// Reads the settings of a Word document.
DocumentProtection readDocumentProtection(Package& package);

/// Says in a sentence that the document is protected, what it still allows and what to do. Raises
/// kNotAvailable.
[[noreturn]] void refuseProtected(const std::string& fileName, DocumentProtection protection);

/// Whether a switch of WordprocessingML is off (ECMA-376 Part 1, 22.9.2.7); an absent value is on.
bool isOff(std::string_view value);

}  // namespace mergeloom::opc
