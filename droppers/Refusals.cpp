#include "droppers/Refusals.h"

namespace mergeloom {

bool refuseTable(DropReports& reports, const std::string& name) {
    return reports.refuse("\"" + name + "\" is left out: dropping a table is not available yet.");
}

bool refuseTableField(DropReports& reports, const std::string& name) {
    return reports.refuse("\"" + name +
                          "\" is left out: dropping a field into a table is not available yet.");
}

bool refuseLabelDocument(DropReports& reports, const std::string& name) {
    return reports.refuse("\"" + name + "\" is left out: dropping a label document is not available yet.");
}

}  // namespace mergeloom
