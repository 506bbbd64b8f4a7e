#pragma once

#include "droppers/DropReports.h"

#include <string>

/// Refusals of what cannot be dropped yet. Each tells the user and answers false.
namespace mergeloom {

bool refuseTable(DropReports& reports, const std::string& name);
bool refuseTableField(DropReports& reports, const std::string& name);
bool refuseLabelDocument(DropReports& reports, const std::string& name);

}  // namespace mergeloom
