#pragma once

#include "office/graft/CanonicalXml.h"
#include "office/opc/Package.h"

#include <string>
#include <string_view>

namespace mergeloom::graft {

/// The rules for exports of workbooks. They leave out the places of objects, which change with the heights of
/// rows.
const CanonicalRules& bookRules();

/// Returns a function that identifies the targets of a part's relationships by their content, including that
/// of their own targets, since names of parts and ids of relationships differ between exports. The package
/// must outlive it.
TargetText contentsOf(opc::Package& package, const std::string& partName, const CanonicalRules& rules);

/// Returns the canonical form of a part's content.
std::string contentOf(opc::Package& package, const std::string& partName, const CanonicalRules& rules);

/// Returns the name of the section for the target of a relationship: the last segment of its type. Types of
/// all makers have one, such as "vbaProject".
std::string sectionOfType(std::string_view relationshipType);

/// Returns the clause of a refusal for a section of a sheet or of the workbook, a name of an element or of a
/// relationship.
std::string reasonForSection(std::string_view section);

}  // namespace mergeloom::graft
