#include "office/libreoffice/excel/CalcWorkbook.h"

#include "base/AutomationError.h"
#include "base/Paths.h"
#include "base/Text.h"
#include "office/formats/FormatTable.h"
#include "office/libreoffice/excel/CalcApplication.h"
#include "office/libreoffice/excel/CalcNames.h"
#include "office/libreoffice/excel/CalcView.h"
#include "office/libreoffice/excel/CalcWorksheet.h"

#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/sheet/XCellAddressable.hpp>
#include <com/sun/star/view/XSelectionSupplier.hpp>
#include <iterator>
#include <utility>

namespace mergeloom::libreoffice {

namespace {

using excel::XlFileFormat;

/// Returns the format in which a workbook is written back, by the extension that it was opened with.
std::optional<XlFileFormat> formatOf(const std::string& path) {
    const FileFormat* const format = findFormatToOpen(DocumentFamily::Excel, toLowerAscii(extension(path)));
    if (format == nullptr || !format->saving) return {};
    return static_cast<XlFileFormat>(format->number);
}

/// The number of steps in the office's undo list.
constexpr std::size_t kMaxSteps = 100;

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
    return std::make_shared<CalcNames>(content());
}

excel::WorksheetsPtr CalcWorkbook::Worksheets() {
    return std::make_shared<CalcWorksheets>(content());
}

const CalcContentPtr& CalcWorkbook::content() {
    if (content_) return content_;
    content_ = std::make_shared<CalcContent>(*formerContents_.back());
    if (!formerContents_.back()->undo().hasOfficeSteps()) formerContents_.pop_back();
    return content_;
}

/// Calc leaves unfinished input out of files. Of all commands that end it, only deselecting cells has no side
/// effects that cannot be reversed.
void CalcWorkbook::endInput() {
    LibreOfficeSession& session = latest()->session();
    if (!session.files().showsDocuments()) return;
    session.connection().call([&] {
        const Reference<css::frame::XModel> model(document(), UNO_QUERY_THROW);
        const Reference<css::frame::XController> view = model->getCurrentController();
        const Reference<css::uno::XInterface> selection = model->getCurrentSelection();
        deselectCells(session.connection().context(), view);
        const bool isOne = Reference<css::sheet::XCellAddressable>(selection, UNO_QUERY).is();
        if (isOne) return;
        Reference<css::view::XSelectionSupplier>(view, UNO_QUERY_THROW)->select(css::uno::Any(selection));
    });
}

void CalcWorkbook::discardContent() {
    if (!content_) return;
    content_->pending().flush();
    formerContents_.push_back(std::exchange(content_, {}));
    if (formerContents_.size() <= kMaxSteps) return;
    formerContents_.front()->undo().removeHiddenShapes();
    formerContents_.pop_front();
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
    endInput();
    if (content_) content_->pending().flush();
    for (const CalcContentPtr& former : formerContents_)
        former->undo().removeHiddenShapes();
    latest()->undo().removeHiddenShapes();
    LibreOfficeSession& session = latest()->session();
    session.files().save(document(), fileName, format, [&](const std::string& bytes) {
        return checkedFile(session, document(), original_.get(), {bytes, bytes}, fileName, format);
    });
    latest()->forgetChanges();
}

void CalcWorkbook::keepOriginal(const GraftingOfficePtr& office, const std::string& path) {
    grafting_ = office;
    LibreOfficeFiles& shown = latest()->session().files();
    original_ = libreoffice::keepOriginal(office, shown, document(), path, DocumentKind::Excel);
}

void CalcWorkbook::prepareSave() {
    if (original_) original_->prepare();
}

std::optional<model::KeptEntries> CalcWorkbook::keptEntries() {
    return original_ ? original_->kept() : std::nullopt;
}

void CalcWorkbook::Close(excel::SaveChanges saveChanges) {
    if (saveChanges == excel::SaveChanges::Yes && !Saved()) Save();
    closeDocument();
    if (const auto application = application_.lock()) application->remove(*this);
}

/// Undoing a step while the user types into a cell would crash the office.
bool CalcWorkbook::Undo(int times) {
    if (times <= 0) return false;
    endInput();
    return content()->undo().undo();
}

void CalcWorkbook::closeDocument() {
    latest()->session().files().close(document());
}

}  // namespace mergeloom::libreoffice
