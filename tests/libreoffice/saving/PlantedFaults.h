#pragma once

#include "office/model/DocumentHost.h"

#include <optional>
#include <random>
#include <string>
#include <vector>

namespace mergeloom {

/// The names of the faults that can be planted into a saved document or workbook.
const std::vector<std::string>& faultNames();

/// Returns the file with one fault at a random place of its body or its sheets, or none if it has no such
/// place.
std::optional<std::string> withFault(const std::string& bytes, DocumentKind kind, const std::string& fault,
                                     std::mt19937& chance);

}  // namespace mergeloom
