#include "office/libreoffice/word/WriterField.h"

#include "base/AutomationError.h"
#include "office/libreoffice/word/StoryText.h"
#include "office/libreoffice/word/TextEditor.h"
#include "office/libreoffice/word/WriterRange.h"

namespace mergeloom::libreoffice {

namespace {

/// A code is no text of the document, though fields may be nested in it: it can be read only.
class CodeRange final : public WriterRange {
  public:
    CodeRange(std::shared_ptr<WriterContent> content, std::shared_ptr<LiveStretch> stretch, std::string code)
        : WriterRange(std::move(content), std::move(stretch)), code_(std::move(code)) {}

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

}  // namespace

word::RangePtr WriterField::Code() {
    const Stretch place = field().place;
    const Stretch code = codeOf(field());
    if (field().fieldCode.empty()) {
        const std::string shown = content_->call([&] { return textOf(*content_, story_, place); });
        throw AutomationError(kNotAvailable, "LibreOffice does not keep the code of " +
                                                 called(field().fieldType) +
                                                 (shown.empty() ? "." : " that shows '" + shown + "'."));
    }
    return std::make_shared<CodeRange>(content_, content_->live(story_, code.start, code.end),
                                       field().fieldCode);
}

word::WdFieldType WriterField::Type() {
    return field().fieldType;
}

void WriterField::Select() {
    content_->select({&story_, field().place.start, field().place.end});
}

void WriterField::Delete() {
    const Stretch place = field().place;
    content_->call([&] { TextEditor(*content_).replace(story_, place, ""); });
}

const TextObject& WriterField::field() const {
    if (!field_->placed) throw AutomationError(kObjectDeleted, "The field has been deleted.");
    return *field_;
}

}  // namespace mergeloom::libreoffice
