#pragma once

#include <string>

namespace mergeloom::embedded {

/// The XML of a part as UTF-8, whatever encoding it was written in; UTF-8 comes back as it is. Raises
/// kFileCouldNotBeRead, naming file and part, when another encoding has to be converted and the part is
/// malformed.
std::string toUtf8Xml(std::string xml, const std::string& partName, const std::string& fileName);

}  // namespace mergeloom::embedded
