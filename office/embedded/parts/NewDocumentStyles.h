#pragma once

#include <string>

namespace mergeloom::embedded {

/// The styles part of a new document (ECMA-376 Part 1, 17.7): 11 pt Calibri, the built-in styles that users
/// look for, and Word's other built-in styles latent, hidden until they are used.
std::string newDocumentStyles();

}  // namespace mergeloom::embedded
