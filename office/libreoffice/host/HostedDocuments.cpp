#include "office/libreoffice/host/HostedDocuments.h"

#include "base/Paths.h"
#include "base/Text.h"
#include "office/formats/FormatTable.h"
#include "office/libreoffice/excel/CalcHosting.h"
#include "office/libreoffice/remote/WriterOffice.h"
#include "office/model/excel/Workbook.h"
#include "office/model/word/Document.h"

#include <optional>
#include <variant>

namespace mergeloom::libreoffice {

DocumentKind kindOf(const std::string& path, DocumentKind shown) {
    const std::optional<DocumentFamily> family = familyOf(toLowerAscii(extension(path)));
    if (!family) return shown;
    return family == DocumentFamily::Word ? DocumentKind::Word : DocumentKind::Excel;
}

DocumentKind kindOf(const HostedDocument& hosted) {
    return std::holds_alternative<excel::WorkbookPtr>(hosted) ? DocumentKind::Excel : DocumentKind::Word;
}

DocumentReference componentOf(const HostedDocument& hosted) {
    if (const auto* const document = std::get_if<word::DocumentPtr>(&hosted))
        return libreoffice::componentOf(**document);
    if (const auto* const workbook = std::get_if<excel::WorkbookPtr>(&hosted))
        return libreoffice::componentOf(**workbook);
    return {};
}

SaveFormat formatOf(const HostedDocument& hosted, int number) {
    if (kindOf(hosted) == DocumentKind::Excel) return static_cast<excel::XlFileFormat>(number);
    return static_cast<word::WdSaveFormat>(number);
}

std::vector<HostedDocument> openDocuments(word::Application& word, excel::Application& excel) {
    std::vector<HostedDocument> all;
    for (int number = 1; number <= word.Documents()->Count(); ++number)
        all.emplace_back(word.Documents()->Item(number));
    for (int number = 1; number <= excel.Workbooks()->Count(); ++number)
        all.emplace_back(excel.Workbooks()->Item(number));
    return all;
}

void beginEditing(const HostedDocument& hosted) {
    if (const auto* const document = std::get_if<word::DocumentPtr>(&hosted))
        libreoffice::beginEditing(**document);
    if (const auto* const workbook = std::get_if<excel::WorkbookPtr>(&hosted))
        libreoffice::beginEditing(**workbook);
}

void endEditing(const HostedDocument& hosted) {
    if (const auto* const document = std::get_if<word::DocumentPtr>(&hosted))
        libreoffice::endEditing(**document);
    if (const auto* const workbook = std::get_if<excel::WorkbookPtr>(&hosted))
        libreoffice::endEditing(**workbook);
}

void endInput(const HostedDocument& hosted) {
    if (const auto* const workbook = std::get_if<excel::WorkbookPtr>(&hosted))
        libreoffice::endInput(**workbook);
}

void close(const HostedDocument& hosted) {
    if (const auto* const document = std::get_if<word::DocumentPtr>(&hosted))
        (*document)->Close(word::WdSaveOptions::wdDoNotSaveChanges);
    if (const auto* const workbook = std::get_if<excel::WorkbookPtr>(&hosted))
        (*workbook)->Close(excel::SaveChanges::No);
}

}  // namespace mergeloom::libreoffice
