#include "office/libreoffice/excel/CalcWorkbook.h"

#include "base/AutomationError.h"
#include "base/Paths.h"
#include "base/Text.h"
#include "office/libreoffice/excel/CalcApplication.h"
#include "office/libreoffice/excel/CalcNames.h"
#include "office/libreoffice/excel/CalcWorksheets.h"

#include <algorithm>
#include <iterator>

namespace mergeloom::libreoffice {

namespace {

using excel::XlFileFormat;

struct FileKind {
    std::string_view extension;
    XlFileFormat format;
};

constexpr XlFileFormat numbered(int number) {
    return static_cast<XlFileFormat>(number);
}

/// In what format a file that was opened is saved again.
constexpr FileKind kFileKinds[] = {
    {"xlsx", XlFileFormat::xlOpenXMLWorkbook},
    {"xlsm", XlFileFormat::xlOpenXMLWorkbookMacroEnabled},
    {"xltx", XlFileFormat::xlOpenXMLTemplate},
    {"xltm", XlFileFormat::xlOpenXMLTemplateMacroEnabled},
    {"xlsb", XlFileFormat::xlExcel12},
    {"xls", XlFileFormat::xlExcel8},
    {"xlt", numbered(17)},
    {"ods", numbered(60)},
    {"csv", numbered(6)},
    {"txt", numbered(-4158)},
    {"htm", numbered(44)},
    {"html", numbered(44)},
};

std::optional<XlFileFormat> formatOf(const std::string& path) {
    const std::string wanted = toLowerAscii(extension(path));
    const auto* const found = std::ranges::find(kFileKinds, wanted, &FileKind::extension);
    if (found == std::end(kFileKinds)) return {};
    return found->format;
}

[[noreturn]] void refuse(const std::string& sentence) {
    throw AutomationError(kFileCouldNotBeSaved, sentence);
}

}  // namespace

CalcWorkbook::CalcWorkbook(std::weak_ptr<CalcApplication> application, CalcContentPtr content,
                           std::string fullName, bool hasFile)
    : application_(std::move(application)),
      content_(std::move(content)),
      fullName_(std::move(fullName)),
      hasFile_(hasFile),
      format_(hasFile ? formatOf(fullName_) : std::nullopt) {}

excel::ApplicationPtr CalcWorkbook::Application() {
    return application_.lock();
}

excel::NamesPtr CalcWorkbook::Names() {
    return std::make_shared<CalcNames>(content_);
}

excel::WorksheetsPtr CalcWorkbook::Worksheets() {
    return std::make_shared<CalcWorksheets>(content_);
}

std::string CalcWorkbook::Name() {
    return fileNameOnly(fullName_);
}

void CalcWorkbook::Save() {
    if (!hasFile_) refuse("The document has no file name yet.");
    if (!format_) {
        refuse("The file '" + fullName_ + "' could not be saved: its extension stands for no format of " +
               "workbooks.");
    }
    write(fullName_, *format_);
}

void CalcWorkbook::SaveAs(const std::string& fileName, excel::XlFileFormat format) {
    write(fileName, format);
    fullName_ = fileName;
    format_ = format;
    hasFile_ = true;
}

void CalcWorkbook::write(const std::string& fileName, excel::XlFileFormat format) {
    content_->pending().settle();
    content_->undo().removeWhatIsHidden();
    content_->session().files().save(content_->document(), fileName, format);
    content_->setSaved(true);
}

void CalcWorkbook::Close(excel::SaveChanges saveChanges) {
    if (saveChanges == excel::SaveChanges::Yes && !Saved()) Save();
    closeDocument();
    if (const auto application = application_.lock()) application->remove(*this);
}

void CalcWorkbook::closeDocument() {
    content_->session().files().close(content_->document());
}

}  // namespace mergeloom::libreoffice
