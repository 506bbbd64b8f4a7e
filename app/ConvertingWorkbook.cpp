#include "app/ConvertingWorkbook.h"

#include "app/ConvertingExcel.h"

namespace mergeloom {

excel::ApplicationPtr ConvertingWorkbook::Application() {
    return office_.lock();
}

excel::NamesPtr ConvertingWorkbook::Names() {
    return file_.document().Names();
}

excel::WorksheetsPtr ConvertingWorkbook::Worksheets() {
    return file_.document().Worksheets();
}

void ConvertingWorkbook::Close(excel::SaveChanges saveChanges) {
    if (saveChanges == excel::SaveChanges::Yes && !Saved()) Save();
    file_.document().Close(excel::SaveChanges::No);
    if (const auto office = office_.lock()) office->remove(*this);
}

}  // namespace mergeloom
