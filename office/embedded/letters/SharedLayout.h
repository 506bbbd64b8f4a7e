#pragma once

#include "office/embedded/letters/ListRestarts.h"
#include "office/embedded/letters/NumberedStyles.h"
#include "office/opc/Package.h"

namespace mergeloom::embedded {

/// Returns true if a template contains nothing that looks different when several records share one document:
/// numbers that count through the document (of pages, notes, lines, lists and fields), links inside the
/// document, controls, and sections or columns of its own. The template must not be marked yet.
bool hasSharedLayout(opc::Package& package, const NumberedStyles& styles, const ListRestarts& lists);

}  // namespace mergeloom::embedded
