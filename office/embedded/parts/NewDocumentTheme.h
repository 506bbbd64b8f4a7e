#pragma once

#include <string_view>

namespace mergeloom::embedded {

/// The theme part of a new document (ECMA-376 Part 1, 20.1.6.9): colours, fonts and shape formats.
std::string_view newDocumentTheme();

}  // namespace mergeloom::embedded
