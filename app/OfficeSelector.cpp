#include "app/OfficeSelector.h"

#include "app/ConvertingExcel.h"
#include "app/ConvertingWord.h"

namespace mergeloom {

OfficeKind OfficeSelector::kindOf(OfficeChoice choice) {
    switch (choice) {
        case OfficeChoice::LibreOffice:
            return OfficeKind::LibreOffice;
        case OfficeChoice::Com:
            return OfficeKind::Com;
        case OfficeChoice::Installed:
            return installedOffice();
        default:
            return OfficeKind::Embedded;
    }
}

word::ApplicationPtr OfficeSelector::startWord() {
    word::ApplicationPtr office = makeWordApplication(kind_, files_, traceFile_);
    if (kind_ != OfficeKind::Embedded) return office;
    return std::make_shared<ConvertingWord>(std::move(office), *converter_);
}

excel::ApplicationPtr OfficeSelector::startExcel() {
    excel::ApplicationPtr office = makeExcelApplication(kind_, files_, traceFile_);
    if (kind_ != OfficeKind::Embedded) return office;
    return std::make_shared<ConvertingExcel>(std::move(office), *converter_);
}

CAutoMapping OfficeSelector::makeMapping(ErrorHandler& errors, Messages& messages, Progress& progress) {
    return {[this] { return startWord(); },
            [this] { return startExcel(); },
            formats_,
            errors,
            messages,
            progress};
}

}  // namespace mergeloom
