#include "office/libreoffice/word/WriterFields.h"

#include "base/AutomationError.h"
#include "office/libreoffice/word/FieldFinder.h"
#include "office/libreoffice/word/RangeText.h"
#include "office/libreoffice/word/TextEditor.h"
#include "office/libreoffice/word/WriterRange.h"
#include "office/model/word/FieldCode.h"

#include <string>
#include <utility>
#include <vector>

namespace mergeloom::libreoffice {

namespace {

/// The range of a field's code, which is not part of the text and can only be read.
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

/// A field as it was found in the document. Writer reads Word's fields into its own, of which each is one
/// character of the text, and keeps the codes of those that it does not know.
class WriterField final : public word::Field {
  public:
    WriterField(std::shared_ptr<WriterContent> content, const TextReference& story, FoundField field)
        : content_(std::move(content)), story_(story), field_(std::move(field)) {}

    /// Returns the code as Word would have it, as far as Writer can tell it; else raises kNotAvailable.
    word::RangePtr Code() override {
        return content_->call([&] { return code(); });
    }
    bool isInCode() override { return field_.isInCode; }
    word::WdFieldType Type() override {
        content_->call([&] { (void)range(); });
        return field_.type;
    }
    void Select() override {
        content_->call([&] { content_->select(range()); });
    }
    void Delete() override {
        content_->call([&] { TextEditor(*content_).replace(*content_->track(range()), ""); });
    }

  private:
    [[nodiscard]] TrackedRange range() const {
        if (!isThere(field_)) throw AutomationError(kObjectDeleted, "The field has been deleted.");
        return {story_, cursorOver(field_.object->getAnchor())};
    }
    [[nodiscard]] word::RangePtr code() const {
        TrackedRange code = range();
        if (field_.code.empty()) raiseUnknownCode(field_.type, textOf(code));
        if (field_.inText.is()) {
            code.cursor = cursorOver(rangeOf(field_.inText));
        } else {
            code.cursor->collapseToStart();
        }
        return std::make_shared<CodeRange>(content_, content_->track(code), field_.code);
    }

    std::shared_ptr<WriterContent> content_;
    TextReference story_;
    FoundField field_;
};

class WriterFields final : public word::Fields {
  public:
    explicit WriterFields(std::vector<word::FieldPtr> fields) : fields_(std::move(fields)) {}

    int Count() override { return static_cast<int>(fields_.size()); }
    word::FieldPtr Item(int number) override { return fields_[indexOf(number)]; }

  private:
    std::vector<word::FieldPtr> fields_;
};

void addFields(const std::shared_ptr<WriterContent>& content, const TextReference& story,
               const Reference<css::uno::XInterface>& text, std::vector<word::FieldPtr>& fields) {
    for (FoundField& field : fieldsIn(text))
        fields.push_back(std::make_shared<WriterField>(content, story, std::move(field)));
}

/// Returns the fields of all stories, in order.
std::vector<word::FieldPtr> allFields(const std::shared_ptr<WriterContent>& content) {
    return content->call([&] {
        std::vector<word::FieldPtr> fields;
        for (const Story& story : content->stories())
            addFields(content, story.text, story.text, fields);
        return fields;
    });
}

class WriterMailMerge final : public word::MailMerge {
  public:
    explicit WriterMailMerge(std::shared_ptr<WriterContent> content) : content_(std::move(content)) {}

    word::FieldsPtr Fields() override {
        std::vector<word::FieldPtr> fields = allFields(content_);
        std::erase_if(fields,
                      [](const word::FieldPtr& field) { return !word::isInMailMergeFields(field->Type()); });
        return std::make_shared<WriterFields>(std::move(fields));
    }

  private:
    std::shared_ptr<WriterContent> content_;
};

}  // namespace

word::FieldsPtr fieldsOf(const std::shared_ptr<WriterContent>& content, const TrackedRange& range) {
    std::vector<word::FieldPtr> fields;
    content->call([&] {
        if (!range.cursor->isCollapsed()) addFields(content, range.story, range.cursor, fields);
    });
    return std::make_shared<WriterFields>(std::move(fields));
}

word::FieldsPtr fieldsOf(const std::shared_ptr<WriterContent>& content) {
    return std::make_shared<WriterFields>(allFields(content));
}

word::MailMergePtr makeMailMerge(const std::shared_ptr<WriterContent>& content) {
    return std::make_shared<WriterMailMerge>(content);
}

}  // namespace mergeloom::libreoffice
