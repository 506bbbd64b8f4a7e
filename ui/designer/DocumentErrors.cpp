#include "ui/designer/DocumentErrors.h"

#include "office/model/excel/Workbook.h"
#include "office/model/word/Document.h"

#include <variant>

namespace mergeloom {

std::string nameOf(const HostedDocument& hosted) {
    if (const auto* const document = std::get_if<word::DocumentPtr>(&hosted)) return (*document)->FullName();
    if (const auto* const workbook = std::get_if<excel::WorkbookPtr>(&hosted)) return (*workbook)->FullName();
    return {};
}

void DocumentErrors::report(const ErrorReport& report) {
    ErrorReport named = report;
    if (!named.comment.empty() && !document_.empty()) named.comment += ", ";
    named.comment += document_;
    errors_.report(named);
}

}  // namespace mergeloom
