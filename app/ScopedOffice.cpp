#include "app/ScopedOffice.h"

#include "office/model/excel/Workbook.h"
#include "office/model/word/Document.h"

namespace mergeloom {

namespace {

/// Closes the last document first, so that the numbers of the others stay.
template <typename Documents, typename Discard>
void closeAll(Documents& documents, Discard discard) {
    for (int number = documents.Count(); number > 0; --number) {
        const auto document = documents.Item(number);
        document->SetSaved(true);
        document->Close(discard);
    }
}

}  // namespace

void closeOffice(word::Application& office) {
    closeAll(*office.Documents(), word::WdSaveOptions::wdDoNotSaveChanges);
    office.Quit(word::WdSaveOptions::wdDoNotSaveChanges);
}

void closeOffice(excel::Application& office) {
    closeAll(*office.Workbooks(), excel::SaveChanges::No);
    office.Quit();
}

}  // namespace mergeloom
