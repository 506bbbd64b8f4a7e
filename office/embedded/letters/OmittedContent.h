#pragma once

#include "office/opc/Package.h"

#include <cstddef>
#include <map>
#include <string>
#include <vector>

/// A letter leaves out rows and tables without records, and the ends of lines without a value. So that it can
/// be filled again, a custom part of the letter keeps their XML, and hidden bookmarks mark their positions.
namespace mergeloom::embedded {

/// The prefix of the hidden bookmarks. The number of the content follows it.
inline constexpr const char* kOmittedName = "_MergeloomOmitted";

/// The XML of omitted content, by its numbers from 1.
using OmittedContent = std::map<std::size_t, std::string>;

/// Returns the custom part with omitted content.
std::string omittedPartXml(const std::vector<std::string>& omitted);

/// Returns the omitted content of a letter and removes the part of it.
OmittedContent takeOmittedContent(opc::Package& package);

}  // namespace mergeloom::embedded
