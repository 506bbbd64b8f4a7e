#include "office/libreoffice/excel/CalcWorksheets.h"

#include "base/AutomationError.h"
#include "office/libreoffice/excel/CalcWorksheet.h"

namespace mergeloom::libreoffice {

namespace {

[[noreturn]] void refuse() {
    throw AutomationError(kSubscriptOutOfRange, "There is no such sheet.");
}

}  // namespace

excel::WorksheetPtr CalcWorksheets::Item(int number) {
    if (number < 1 || number > Count()) refuse();
    return std::make_shared<CalcWorksheet>(content_, static_cast<std::size_t>(number) - 1);
}

excel::WorksheetPtr CalcWorksheets::Item(const std::string& name) {
    const std::optional<std::size_t> sheet = content_->sheetNamed(name);
    if (!sheet) refuse();
    return std::make_shared<CalcWorksheet>(content_, *sheet);
}

}  // namespace mergeloom::libreoffice
