#include "office/embedded/excel/EmbeddedWorksheets.h"

#include "base/AutomationError.h"
#include "office/embedded/excel/EmbeddedWorksheet.h"

#include <utility>

namespace mergeloom::embedded {

namespace {

[[noreturn]] void refuse() {
    throw AutomationError(kSubscriptOutOfRange, "There is no such sheet.");
}

}  // namespace

EmbeddedWorksheets::EmbeddedWorksheets(std::shared_ptr<WorkbookContent> content)
    : content_(std::move(content)) {
    const std::vector<SheetEntry>& all = content_->workbook().sheets();
    for (std::size_t index = 0; index < all.size(); ++index) {
        if (all[index].kind == SheetKind::Worksheet) sheets_.push_back(index);
    }
}

excel::WorksheetPtr EmbeddedWorksheets::Item(int number) {
    return std::make_shared<EmbeddedWorksheet>(content_, sheets_[indexOf(number)]);
}

excel::WorksheetPtr EmbeddedWorksheets::Item(const std::string& name) {
    const std::optional<std::size_t> sheet = content_->worksheetNamed(name);
    if (!sheet) refuse();
    return std::make_shared<EmbeddedWorksheet>(content_, *sheet);
}

}  // namespace mergeloom::embedded
