#pragma once

#include "office/opc/Package.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace mergeloom::opc {

/// The edits that a protected document still allows (ECMA-376 Part 1, 17.15.1.29). Protection that is not
/// enforced counts as None.
enum class DocumentProtection : std::uint8_t { None, ReadOnly, Comments, TrackedChanges, Forms };

/// Returns the protection in the settings of a Word document.
DocumentProtection readDocumentProtection(Package& package);

/// Raises kNotAvailable with a sentence that states what the protection still allows and what to do.
[[noreturn]] void refuseProtected(const std::string& fileName, DocumentProtection protection);

/// Returns true if a switch of WordprocessingML is off (ECMA-376 Part 1, 22.9.2.7); an absent value is on.
bool isOff(std::string_view value);

}  // namespace mergeloom::opc
