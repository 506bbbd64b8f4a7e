#include "office/libreoffice/word/WriterField.h"

#include "base/AutomationError.h"
#include "office/libreoffice/session/UnoText.h"
#include "office/libreoffice/word/TextEditor.h"
#include "office/libreoffice/word/WriterRange.h"

#include <algorithm>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/lang/XServiceInfo.hpp>
#include <com/sun/star/text/XDependentTextField.hpp>
#include <iterator>

namespace mergeloom::libreoffice {

namespace {

using word::WdFieldType;

struct FieldService {
    const char* service;
    WdFieldType type;
};

constexpr FieldService kServices[] = {
    {"com.sun.star.text.textfield.Database", WdFieldType::wdFieldMergeField},
    {"com.sun.star.text.textfield.ConditionalText", WdFieldType::wdFieldIf},
    {"com.sun.star.text.textfield.DatabaseNextSet", WdFieldType::wdFieldNext},
    {"com.sun.star.text.textfield.DatabaseNumberOfSet", WdFieldType::wdFieldSkipIf},
    {"com.sun.star.text.textfield.DatabaseSetNumber", WdFieldType::wdFieldMergeRec},
};

std::string property(const Reference<css::uno::XInterface>& object, const char* name) {
    OUString value;
    Reference<css::beans::XPropertySet>(object, UNO_QUERY_THROW)
        ->getPropertyValue(OUString::createFromAscii(name)) >>= value;
    return fromUno(value);
}

std::string columnOf(const FieldReference& field) {
    const Reference<css::text::XDependentTextField> dependent(field, UNO_QUERY_THROW);
    return property(dependent->getTextFieldMaster(), "DataColumnName");
}

/// The code, where Writer knows all that is in it.
std::string codeOf(const FieldReference& field) {
    switch (typeOf(field)) {
        case WdFieldType::wdFieldMergeField:
            return " MERGEFIELD " + columnOf(field) + " ";
        case WdFieldType::wdFieldMergeRec:
            return " MERGEREC ";
        default:
            throw AutomationError(kNotAvailable,
                                  "LibreOffice does not keep the code of the field that shows '" +
                                      fromUno(field->getPresentation(false)) + "'.");
    }
}

/// A code is no text of the document: it can be read, and its place is the field's.
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

}  // namespace

WdFieldType typeOf(const FieldReference& field) {
    const Reference<css::lang::XServiceInfo> info(field, UNO_QUERY_THROW);
    const auto* const found = std::ranges::find_if(kServices, [&](const FieldService& known) {
        return info->supportsService(OUString::createFromAscii(known.service));
    });
    return found == std::end(kServices) ? WdFieldType::wdFieldEmpty : found->type;
}

word::RangePtr WriterField::Code() {
    checkIsThere();
    const std::string code = content_->call([&] { return codeOf(field_); });
    return std::make_shared<CodeRange>(content_, stretch_, code);
}

WdFieldType WriterField::Type() {
    checkIsThere();
    return content_->call([&] { return typeOf(field_); });
}

void WriterField::Select() {
    checkIsThere();
    content_->select(*stretch_);
}

void WriterField::Delete() {
    checkIsThere();
    content_->call([&] {
        TextEditor(*content_).replace(*stretch_->story, {stretch_->start, stretch_->end}, "");
    });
}

/// A field's place in the text narrows to nothing when the field goes.
void WriterField::checkIsThere() const {
    if (stretch_->isCaret()) throw AutomationError(kObjectDeleted, "The field has been deleted.");
}

}  // namespace mergeloom::libreoffice
