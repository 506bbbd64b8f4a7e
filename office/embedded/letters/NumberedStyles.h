#pragma once

#include "office/opc/Package.h"

#include <set>
#include <string>

namespace mergeloom::embedded {

/// Returns the ids of the paragraph styles with a numbering of their own or of a style that they are based on
/// (ECMA-376 Part 1, 17.7.4.17 and 17.9.23).
std::set<std::string> numberedStyles(opc::Package& package);

}  // namespace mergeloom::embedded
