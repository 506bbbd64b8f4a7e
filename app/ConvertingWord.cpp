#include "app/ConvertingWord.h"

#include "app/Conversion.h"
#include "app/FileFormats.h"
#include "base/AutomationError.h"
#include "office/model/word/Application.h"
#include "office/model/word/Document.h"

#include <memory>
#include <string>
#include <utility>

namespace mergeloom {

class ConvertingWord;

using ConvertedWordFile = ConvertedFile<word::Document, word::WdSaveFormat>;

/// A document of an office that converts: all but its file is that of the other office.
class ConvertingDocument final : public word::Document {
  public:
    ConvertingDocument(std::weak_ptr<ConvertingWord> office, ConvertedWordFile file)
        : office_(std::move(office)), file_(std::move(file)) {}

    word::ApplicationPtr Application() override;
    word::WindowPtr ActiveWindow() override;
    word::BookmarksPtr Bookmarks() override;
    word::FieldsPtr Fields() override;
    word::MailMergePtr MailMerge() override;
    word::TablesPtr Tables() override;

    std::string Name() override { return file_.name(); }
    std::string FullName() override { return file_.fullName(); }
    bool Saved() override { return file_.document().Saved(); }
    void SetSaved(bool saved) override { file_.document().SetSaved(saved); }

    void Save() override { file_.save(); }
    void SaveAs(const std::string& fileName, word::WdSaveFormat format) override {
        file_.saveAs(fileName, format);
    }
    void Close(word::WdSaveOptions saveChanges) override;
    bool Undo(int times) override { return file_.document().Undo(times); }
    void giveUpUndo() override { file_.document().giveUpUndo(); }

  private:
    std::weak_ptr<ConvertingWord> office_;
    ConvertedWordFile file_;
};

namespace {

using word::WdSaveFormat;

class ConvertingDocuments final : public word::Documents {
  public:
    explicit ConvertingDocuments(std::shared_ptr<ConvertingWord> office) : office_(std::move(office)) {}

    int Count() override { return static_cast<int>(office_->documents().size()); }
    word::DocumentPtr Add(const std::string& templatePath) override { return office_->add(templatePath); }
    word::DocumentPtr Open(const std::string& fileName) override { return office_->open(fileName); }
    word::DocumentPtr Item(int number) override {
        if (number < 1 || number > Count())
            throw AutomationError(kMemberNotFound, "There is no such document.");
        return office_->documents()[static_cast<std::size_t>(number) - 1];
    }

  private:
    std::shared_ptr<ConvertingWord> office_;
};

}  // namespace

std::optional<WdSaveFormat> ConvertingWord::formatOf(const std::string& path) {
    if (!hasWordExtension(path)) return std::nullopt;
    return wordFormatToWrite(path, [this](WdSaveFormat format) { return canSaveAs(format); });
}

word::DocumentsPtr ConvertingWord::Documents() {
    return std::make_shared<ConvertingDocuments>(shared_from_this());
}

void ConvertingWord::Quit(word::WdSaveOptions saveChanges) {
    while (!documents_.empty()) {
        const std::shared_ptr<ConvertingDocument> last = documents_.back();
        last->Close(saveChanges);
    }
    office_->Quit(word::WdSaveOptions::wdDoNotSaveChanges);
}

word::DocumentPtr ConvertingWord::open(const std::string& fileName) {
    word::DocumentPtr document;
    const auto openIt = [&](const std::string& path) { document = office_->Documents()->Open(path); };
    if (isForeignWordFile(fileName)) {
        conversion_.read(fileName, openIt);
    } else {
        openIt(fileName);
    }
    documents_.push_back(std::make_shared<ConvertingDocument>(
        weak_from_this(), ConvertedWordFile(document, conversion_, fileName, formatOf(fileName))));
    return documents_.back();
}

word::DocumentPtr ConvertingWord::add(const std::string& templatePath) {
    word::DocumentPtr document;
    const auto addIt = [&](const std::string& path) { document = office_->Documents()->Add(path); };
    if (isForeignWordFile(templatePath)) {
        conversion_.read(templatePath, addIt);
    } else {
        addIt(templatePath);
    }
    documents_.push_back(std::make_shared<ConvertingDocument>(
        weak_from_this(), ConvertedWordFile(document, conversion_, document->FullName(), std::nullopt)));
    return documents_.back();
}

void ConvertingWord::remove(const ConvertingDocument& document) {
    std::erase_if(documents_, [&](const auto& candidate) { return candidate.get() == &document; });
}

word::ApplicationPtr ConvertingDocument::Application() {
    return office_.lock();
}

word::WindowPtr ConvertingDocument::ActiveWindow() {
    return file_.document().ActiveWindow();
}

word::BookmarksPtr ConvertingDocument::Bookmarks() {
    return file_.document().Bookmarks();
}

word::FieldsPtr ConvertingDocument::Fields() {
    return file_.document().Fields();
}

word::MailMergePtr ConvertingDocument::MailMerge() {
    return file_.document().MailMerge();
}

word::TablesPtr ConvertingDocument::Tables() {
    return file_.document().Tables();
}

void ConvertingDocument::Close(word::WdSaveOptions saveChanges) {
    if (saveChanges == word::WdSaveOptions::wdSaveChanges && !Saved()) Save();
    file_.document().Close(word::WdSaveOptions::wdDoNotSaveChanges);
    if (const auto office = office_.lock()) office->remove(*this);
}

}  // namespace mergeloom
