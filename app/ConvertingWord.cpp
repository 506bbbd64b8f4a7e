#include "app/ConvertingWord.h"

#include "app/ConvertingDocument.h"
#include "app/FileFormats.h"
#include "base/AutomationError.h"

namespace mergeloom {

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

}  // namespace mergeloom
