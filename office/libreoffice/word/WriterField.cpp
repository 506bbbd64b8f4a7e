#include "office/libreoffice/word/WriterField.h"

#include "base/AutomationError.h"
#include "office/libreoffice/word/RangeText.h"
#include "office/libreoffice/word/TextEditor.h"
#include "office/libreoffice/word/WriterRange.h"

#include <string>

namespace mergeloom::libreoffice {

namespace {

/// A code is no text of the document, though fields may be nested in it: it can be read only.
class CodeRange final : public WriterRange {
  public:
    CodeRange(std::shared_ptr<WriterContent> content, RangePtr range, std::string code)
        : WriterRange(std::move(content), std::move(range)), code_(std::move(code)) {}

    std::string Text() override { return code_; }
    void SetText(const std::string&) override {
        throw AutomationError(kNotAvailable, "LibreOffice cannot change the code of a field.");
    }

  private:
    std::string code_;
};

std::string called(word::WdFieldType type) {
    if (type == word::WdFieldType::wdFieldIf) return "an IF field";
    if (type == word::WdFieldType::wdFieldNextIf) return "a NEXTIF field";
    return "a field";
}

[[noreturn]] void raiseUnknownCode(word::WdFieldType type, const std::string& shown) {
    throw AutomationError(kNotAvailable, "LibreOffice does not keep the code of " + called(type) +
                                             (shown.empty() ? "." : " that shows '" + shown + "'."));
}

}  // namespace

TrackedRange WriterField::range() const {
    if (!isThere(field_)) throw AutomationError(kObjectDeleted, "The field has been deleted.");
    return {story_, cursorOver(field_.object->getAnchor())};
}

word::RangePtr WriterField::Code() {
    return content_->call([&]() -> word::RangePtr {
        TrackedRange code = range();
        if (field_.code.empty()) raiseUnknownCode(field_.type, textOf(code));
        if (field_.inText.is()) {
            code.cursor = cursorOver(rangeOf(field_.inText));
        } else {
            code.cursor->collapseToStart();
        }
        return std::make_shared<CodeRange>(content_, content_->track(code), field_.code);
    });
}

word::WdFieldType WriterField::Type() {
    content_->call([&] { (void)range(); });
    return field_.type;
}

void WriterField::Select() {
    content_->call([&] { content_->select(range()); });
}

void WriterField::Delete() {
    content_->call([&] {
        const RangePtr whole = content_->track(range());
        TextEditor(*content_).replace(*whole, "");
    });
}

}  // namespace mergeloom::libreoffice
