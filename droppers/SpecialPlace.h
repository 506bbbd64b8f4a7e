#pragma once

#include "droppers/DropReports.h"
#include "office/model/word/Document.h"
#include "xml/modNamedItems.h"

namespace mergeloom {

/// Whether a kind of drop stands for no control but for an optional blank or line break.
constexpr bool isSpecialPlace(DropKind kind) {
    return kind == DropKind::OptionalSpace || kind == DropKind::OptionalCarriageReturn;
}

/// Makes the selection a place for an optional blank or line break, under the first free one of the 20 names
/// of its kind. Only Word takes such places.
bool addSpecialPlace(DropReports& reports, DropKind kind, word::Document& document);

}  // namespace mergeloom
