#include "office/libreoffice/remote/WriterDocument.h"

#include "base/AutomationError.h"
#include "base/Paths.h"
#include "base/Text.h"
#include "office/formats/FormatTable.h"
#include "office/libreoffice/remote/StandIns.h"
#include "office/libreoffice/remote/WholeBookmarks.h"
#include "office/libreoffice/remote/WriterApplication.h"
#include "office/libreoffice/remote/WriterOffice.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <set>
#include <string_view>
#include <utility>

namespace mergeloom::libreoffice {

namespace {

/// Returns the format in which a document is written back, by the extension that it was opened with.
word::WdSaveFormat formatOf(const std::string& fileName) {
    const FileFormat* const format =
        findFormatToOpen(DocumentFamily::Word, toLowerAscii(extension(fileName)));
    if (format != nullptr && format->saving) return word::WdSaveFormat{format->number};
    throw AutomationError(kFileCouldNotBeSaved, "The file '" + fileName +
                                                    "' could not be saved: LibreOffice does not write "
                                                    "documents with that extension.");
}

/// A document without a window has a selection all the same.
class WriterWindow final : public word::Window {
  public:
    explicit WriterWindow(DocumentLinePtr line) : line_(std::move(line)) {}

    word::SelectionPtr Selection() override { return line_->callEditor<&DocumentEditor::Selection>(); }

  private:
    DocumentLinePtr line_;
};

bool isOpenPackaging(word::WdSaveFormat format) {
    return format >= word::WdSaveFormat::wdFormatXMLDocument &&
           format <= word::WdSaveFormat::wdFormatXMLTemplateMacroEnabled;
}

}  // namespace

WriterDocument::WriterDocument(std::weak_ptr<WriterApplication> application, DocumentLinePtr line,
                               const DocumentReference& document, std::string fullName, bool wasOpened)
    : application_(std::move(application)),
      line_(std::move(line)),
      document_(document),
      fullName_(std::move(fullName)),
      hasFile_(wasOpened) {}

word::ApplicationPtr WriterDocument::Application() {
    return application_.lock();
}

word::WindowPtr WriterDocument::ActiveWindow() {
    return std::make_shared<WriterWindow>(line_);
}

word::SelectionPtr WriterDocument::selection() {
    return line_->callEditor<&DocumentEditor::Selection>();
}

word::UndoRecordPtr WriterDocument::undoRecord() {
    return line_->callEditor<&DocumentEditor::UndoRecord>();
}

word::BookmarksPtr WriterDocument::Bookmarks() {
    return line_->callEditor<&DocumentEditor::Bookmarks>();
}

word::FieldsPtr WriterDocument::Fields() {
    return line_->callEditor<&DocumentEditor::Fields>();
}

word::MailMergePtr WriterDocument::MailMerge() {
    return line_->callEditor<&DocumentEditor::MailMerge>();
}

word::TablesPtr WriterDocument::Tables() {
    return line_->callEditor<&DocumentEditor::Tables>();
}

std::string WriterDocument::Name() {
    return fileNameOnly(fullName_);
}

bool WriterDocument::Saved() {
    return line_->callEditor<&DocumentEditor::Saved>();
}

void WriterDocument::SetSaved(bool saved) {
    line_->callEditor<&DocumentEditor::SetSaved>(saved);
}

void WriterDocument::Save() {
    if (!hasFile_) throw AutomationError(kFileCouldNotBeSaved, "The document has no file name yet.");
    write(fullName_, formatOf(fullName_));
}

void WriterDocument::SaveAs(const std::string& fileName, word::WdSaveFormat format) {
    write(fileName, format);
    fullName_ = fileName;
    hasFile_ = true;
}

void WriterDocument::write(const std::string& fileName, word::WdSaveFormat format) {
    if (!document_.is()) throw AutomationError(kObjectDeleted, "The document is closed.");
    LibreOfficeSession& session = line_->session();
    session.files().save(document_, fileName, format, [&](const std::string& bytes) {
        const std::string mended = isOpenPackaging(format) ? withMendedBookmarks(bytes, fileName) : bytes;
        return checkedFile(session, document_, original_.get(), {bytes, mended}, fileName, format);
    });
}

std::string WriterDocument::withMendedBookmarks(const std::string& bytes, const std::string& fileName) {
    const std::vector<std::string> names = line_->callEditor<&DocumentEditor::namesOverTables>();
    return packageWithWholeBookmarks(bytes, fileName, {names.begin(), names.end()}).value_or(bytes);
}

void WriterDocument::keepOriginal(const GraftingOfficePtr& office, const std::string& path) {
    grafting_ = office;
    original_ =
        libreoffice::keepOriginal(office, line_->session().files(), document_, path, DocumentKind::Word);
}

void WriterDocument::prepareSave() {
    if (original_ && document_.is()) original_->prepare();
}

std::optional<model::KeptEntries> WriterDocument::keptEntries() {
    return original_ ? original_->kept() : std::nullopt;
}

void WriterDocument::drop() {
    const DocumentReference document = std::exchange(document_, {});
    if (!document.is()) return;
    line_->callEditor<&DocumentEditor::close>();
    line_->close();
    line_->session().files().close(document);
}

void WriterDocument::Close(word::WdSaveOptions saveChanges) {
    if (!document_.is()) return;
    if (saveChanges == word::WdSaveOptions::wdSaveChanges && !Saved()) Save();
    drop();
    if (const auto application = application_.lock()) application->remove(*this);
}

bool WriterDocument::Undo(int times) {
    return times > 0 && line_->callEditor<&DocumentEditor::Undo>(times);
}

void WriterDocument::beginEditing() {
    OfficeConnection& connection = line_->session().connection();
    connection.expect(RequestPattern::Series);
    try {
        line_->callEditor<&DocumentEditor::beginEditing>();
    } catch (const AutomationError&) {
        connection.expect(RequestPattern::Single);
        throw;
    }
}

void WriterDocument::endEditing() {
    line_->session().connection().expect(RequestPattern::Single);
    line_->callEditor<&DocumentEditor::endEditing>();
}

DocumentReference componentOf(word::Document& document) {
    return dynamic_cast<WriterDocument&>(document).component();
}

void beginEditing(word::Document& document) {
    dynamic_cast<WriterDocument&>(document).beginEditing();
}

void endEditing(word::Document& document) {
    dynamic_cast<WriterDocument&>(document).endEditing();
}

}  // namespace mergeloom::libreoffice
