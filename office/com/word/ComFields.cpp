#include "office/com/word/ComWordModel.h"
#include "office/com/word/StoryNames.h"
#include "office/model/word/FieldCode.h"
#include "office/model/word/Fields.h"
#include "office/model/word/Range.h"

#include <optional>
#include <vector>

namespace mergeloom::com {

namespace {

class ComField final : public word::Field {
  public:
    ComField(ComWordModelPtr model, AutomationObject field, bool isInCode)
        : model_(std::move(model)), field_(std::move(field)), isInCode_(isInCode) {}

    word::RangePtr Code() override { return makeRange(model_, field_.object("Range", "Code")); }
    bool isInCode() override { return isInCode_; }
    word::WdFieldType Type() override { return word::WdFieldType{field_.get("Type").integer()}; }
    void Select() override { field_.call("Select"); }
    void Delete() override { field_.call("Delete"); }

  private:
    ComWordModelPtr model_;
    AutomationObject field_;
    bool isInCode_;
};

/// Finds the fields of a story that are part of the code of another one: an outer field is before those
/// inside it.
class CodeRanges {
  public:
    /// Adds the next field and returns true if it is in the code of one before.
    bool add(const AutomationObject& field) {
        const AutomationObject code = field.object("Range", "Code");
        const std::int64_t start = code.get("Start").number();
        const std::int64_t end = code.get("End").number();
        while (!ends_.empty() && ends_.back() <= start)
            ends_.pop_back();
        const bool isInside = !ends_.empty();
        ends_.push_back(end);
        return isInside;
    }

  private:
    std::vector<std::int64_t> ends_;  ///< of the codes around the last field, the innermost one last
};

class ComFields final : public word::Fields {
  public:
    explicit ComFields(ComWordModelPtr model) : model_(std::move(model)) {}

    int Count() override { return static_cast<int>(fields_.size()); }
    word::FieldPtr Item(int number) override { return fields_[indexOf(number)]; }

    void addStory(const AutomationObject& story, FieldChoice choice) {
        CodeRanges codes;
        for (const AutomationObject& field : story.object("Fields", "Fields").items("Field")) {
            const bool isInCode = codes.add(field);
            const auto made = std::make_shared<ComField>(model_, field, isInCode);
            if (choice == FieldChoice::All || word::isInMailMergeFields(made->Type()))
                fields_.push_back(made);
        }
    }

  private:
    ComWordModelPtr model_;
    std::vector<word::FieldPtr> fields_;
};

/// The fields of a range, most of whose callers need only the count.
class ComRangeFields final : public word::Fields {
  public:
    ComRangeFields(ComWordModelPtr model, AutomationObject owner)
        : model_(std::move(model)), owner_(std::move(owner)) {}

    int Count() override {
        return fields_ ? fields_->Count() : owner_.object("Fields", "Fields").get("Count").integer();
    }
    word::FieldPtr Item(int number) override {
        if (!fields_) fields_.emplace(model_).addStory(owner_, FieldChoice::All);
        return fields_->Item(number);
    }

  private:
    ComWordModelPtr model_;
    AutomationObject owner_;
    std::optional<ComFields> fields_;
};

}  // namespace

word::FieldsPtr makeFields(const ComWordModelPtr& model, const AutomationObject& owner) {
    return std::make_shared<ComRangeFields>(model, owner);
}

word::FieldsPtr makeDocumentFields(const ComWordModelPtr& model, const AutomationObject& document,
                                   FieldChoice choice) {
    auto fields = std::make_shared<ComFields>(model);
    for (const AutomationObject& story : storiesOf(document))
        fields->addStory(story, choice);
    return fields;
}

}  // namespace mergeloom::com
