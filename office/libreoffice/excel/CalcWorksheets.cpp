#include "office/libreoffice/excel/CalcWorksheets.h"

#include "base/AutomationError.h"
#include "office/libreoffice/excel/CalcWorksheet.h"

#include <utility>

namespace mergeloom::libreoffice {

namespace {

[[noreturn]] void refuse() {
    throw AutomationError(kSubscriptOutOfRange, "There is no such sheet.");
}

}  // namespace

CalcWorksheets::CalcWorksheets(CalcContentPtr content) : content_(std::move(content)) {
    for (std::size_t index = 0; index < content_->sheetCount(); ++index)
        if (content_->sheet(index).hasCells()) sheets_.push_back(index);
}

excel::WorksheetPtr CalcWorksheets::Item(int number) {
    return std::make_shared<CalcWorksheet>(content_, sheets_[indexOf(number)]);
}

excel::WorksheetPtr CalcWorksheets::Item(const std::string& name) {
    const std::optional<std::size_t> sheet = content_->sheetNamed(name);
    if (!sheet) refuse();
    return std::make_shared<CalcWorksheet>(content_, *sheet);
}

}  // namespace mergeloom::libreoffice
