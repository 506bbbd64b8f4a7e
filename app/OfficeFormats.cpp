#include "app/OfficeFormats.h"

#include "app/Conversion.h"
#include "app/FileFormats.h"

namespace mergeloom {

namespace {

std::string withChoice(const std::string& refusal, const char* extensions) {
    return refusal.empty() ? refusal : refusal + " Choose " + extensions + " otherwise.";
}

}  // namespace

std::string OfficeFormats::refusalToWrite(word::WdSaveFormat format) const {
    if (kind_ == OfficeKind::Com) return {};
    if (kind_ == OfficeKind::LibreOffice) return converter_.refusal(format);
    if (makeWordApplication(kind_, files_)->canSaveAs(format)) return {};
    return withChoice(converter_.refusal(format), "docx, docm, dotx or dotm");
}

std::string OfficeFormats::refusalToWrite(excel::XlFileFormat format) const {
    if (kind_ == OfficeKind::Com) return {};
    if (kind_ == OfficeKind::LibreOffice) return converter_.refusal(format);
    if (makeExcelApplication(kind_, files_)->canSaveAs(format)) return {};
    return withChoice(converter_.refusal(format), "xlsx, xlsm, xltx or xltm");
}

bool OfficeFormats::isConverted(word::WdSaveFormat format) const {
    return kind_ == OfficeKind::Embedded && !makeWordApplication(kind_, files_)->canSaveAs(format);
}

bool OfficeFormats::isConverted(excel::XlFileFormat format) const {
    return kind_ == OfficeKind::Embedded && !makeExcelApplication(kind_, files_)->canSaveAs(format);
}

word::WdSaveFormat OfficeFormats::documentFormatOf(const std::string& path) const {
    return wordFormatToWrite(path,
                             [this](word::WdSaveFormat format) { return refusalToWrite(format).empty(); });
}

excel::XlFileFormat OfficeFormats::workbookFormatOf(const std::string& path) const {
    return excelFormatToWrite(path,
                              [this](excel::XlFileFormat format) { return refusalToWrite(format).empty(); });
}

std::string OfficeFormats::refusalToOpenDocument(const std::string& path) const {
    const bool isConverted = kind_ == OfficeKind::Embedded && isForeignWordFile(path);
    return isConverted ? refusalToRead<word::WdSaveFormat>(converter_, path) : std::string();
}

std::string OfficeFormats::refusalToOpenWorkbook(const std::string& path) const {
    const bool isConverted = kind_ == OfficeKind::Embedded && isForeignExcelFile(path);
    return isConverted ? refusalToRead<excel::XlFileFormat>(converter_, path) : std::string();
}

}  // namespace mergeloom
