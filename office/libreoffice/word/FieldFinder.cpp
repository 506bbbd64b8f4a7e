#include "office/libreoffice/word/FieldFinder.h"

#include "base/Text.h"
#include "office/libreoffice/session/UnoText.h"
#include "office/libreoffice/word/TextPortions.h"
#include "office/model/word/FieldCode.h"

#include <algorithm>
#include <com/sun/star/lang/DisposedException.hpp>
#include <com/sun/star/lang/XServiceInfo.hpp>
#include <com/sun/star/text/SetVariableType.hpp>
#include <com/sun/star/text/XDependentTextField.hpp>
#include <com/sun/star/text/XFormField.hpp>
#include <com/sun/star/text/XParagraphCursor.hpp>
#include <com/sun/star/text/XTextField.hpp>

namespace mergeloom::libreoffice {

namespace {

using word::WdFieldType;
using Properties = Reference<css::beans::XPropertySet>;

constexpr const char* kCodeParameter = "vnd.oasis.opendocument.field.code";

std::string textOf(const Properties& properties, const char* name) {
    OUString text;
    properties->getPropertyValue(OUString::createFromAscii(name)) >>= text;
    return fromUno(text);
}

FoundField fieldOfCode(const std::string& code) {
    return {.object = {}, .type = word::typeOfCode(code), .code = " " + std::string(trimBlanks(code)) + " "};
}

std::string asPiece(const std::string& name) {
    return word::piecesOfCode(name) == std::vector{name} ? name : word::quotedPiece(name);
}

/// Writer keeps the prompt of ASK with the quotes around it.
std::string asArgument(const std::string& text) {
    const std::string trimmed(trimBlanks(text));
    return trimmed.starts_with('"') ? trimmed : word::quotedPiece(trimmed);
}

FoundField variableField(const Properties& field) {
    sal_Int16 kind = css::text::SetVariableType::VAR;
    field->getPropertyValue("SubType") >>= kind;
    if (kind == css::text::SetVariableType::SEQUENCE) return {};
    const std::string name = asPiece(textOf(field, "VariableName"));
    if (isTrue(field, "Input")) return fieldOfCode("ASK " + name + " " + asArgument(textOf(field, "Hint")));
    return fieldOfCode("SET " + name + " " + asArgument(textOf(field, "Content")));
}

FoundField dataField(const Reference<css::uno::XInterface>& field) {
    const Reference<css::text::XDependentTextField> dependent(field, UNO_QUERY_THROW);
    return fieldOfCode("MERGEFIELD " + asPiece(textOf(dependent->getTextFieldMaster(), "DataColumnName")));
}

FoundField nextField(const Properties& field) {
    const std::string condition = textOf(field, "Condition");
    if (condition.empty() || condition == "TRUE") return fieldOfCode("NEXT");
    return {.object = {}, .type = WdFieldType::wdFieldNextIf};
}

/// Returns what a field of Writer's own is in Word; nothing for a kind that no code distinguishes.
FoundField knownField(const Reference<css::uno::XInterface>& field) {
    const auto names = Reference<css::lang::XServiceInfo>(field, UNO_QUERY_THROW)->getSupportedServiceNames();
    const Properties properties(field, UNO_QUERY_THROW);
    const auto is = [&](const char* kind) {
        const OUString ending = "." + OUString::createFromAscii(kind);
        return std::ranges::any_of(names, [&](const OUString& name) { return name.endsWith(ending); });
    };
    if (is("Database")) return dataField(field);
    if (is("ConditionalText")) return {.object = {}, .type = WdFieldType::wdFieldIf};
    if (is("DatabaseNextSet")) return nextField(properties);
    // Writer takes MERGEREC for the choice of a record.
    if (is("DatabaseNumberOfSet") || is("DatabaseSetNumber")) return fieldOfCode("MERGEREC");
    if (is("SetExpression")) return variableField(properties);
    if (is("Input")) return fieldOfCode("FILLIN " + word::quotedPiece(textOf(properties, "Hint")));
    return {};
}

/// Deprecated or not, no other interface leads to them.
Reference<css::container::XNameContainer> parametersOf(const Reference<css::text::XFormField>& field) {
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
    return field->getParameters();
#pragma GCC diagnostic pop
}

FoundField unknownField(const Reference<css::text::XFormField>& field) {
    const auto parameters = parametersOf(field);
    const OUString name = OUString::createFromAscii(kCodeParameter);
    if (!parameters->hasByName(name)) return {};
    OUString code;
    parameters->getByName(name) >>= code;
    return fieldOfCode(fromUno(code));
}

class FieldReader {
  public:
    void read(const TextPortion& portion) {
        if (portion.type == "TextField") addKnown(portion);
        if (portion.type == "TextFieldStart") begin(portion);
        if (portion.type == "TextFieldSeparator") endCode(portion);
        if (portion.type == "TextFieldEnd" && !open_.empty()) open_.pop_back();
    }

    [[nodiscard]] std::vector<FoundField>& fields() { return fields_; }

  private:
    /// A field whose end was not read yet.
    struct OpenField {
        std::size_t number;
        RangeReference codeStart;
        bool isInCode = true;
    };

    void add(FoundField field, const Reference<css::text::XTextContent>& object) {
        field.object = object;
        field.isInCode = std::ranges::any_of(open_, &OpenField::isInCode);
        fields_.push_back(std::move(field));
    }

    void addKnown(const TextPortion& portion) {
        Reference<css::text::XTextField> field;
        portion.properties->getPropertyValue("TextField") >>= field;
        if (field.is()) add(knownField(field), {field.get()});
    }

    void begin(const TextPortion& portion) {
        Reference<css::text::XFormField> field;
        portion.properties->getPropertyValue("Bookmark") >>= field;
        if (!field.is()) return;
        add(unknownField(field), {field, UNO_QUERY_THROW});
        open_.push_back({fields_.size() - 1, portion.range()->getEnd()});
    }

    void endCode(const TextPortion& portion) {
        if (open_.empty() || !open_.back().isInCode) return;
        open_.back().isInCode = false;
        fields_[open_.back().number].inText = cursorOver(open_.back().codeStart, portion.range()->getStart());
    }

    std::vector<FoundField> fields_;
    std::vector<OpenField> open_;
};

}  // namespace

std::vector<FoundField> fieldsIn(const Reference<css::uno::XInterface>& text) {
    FieldReader reader;
    forEachPortion(text, [&](const TextPortion& portion) { reader.read(portion); });
    return std::move(reader.fields());
}

bool isThere(const FoundField& field) try {
    return field.object->getAnchor().is();
} catch (const css::uno::RuntimeException&) {
    return false;
}

void restoreCode(const RangeReference& place, const std::string& code) {
    const CursorReference cursor = cursorOver(place);
    const Reference<css::text::XParagraphCursor> paragraph(cursor, UNO_QUERY_THROW);
    paragraph->gotoStartOfParagraph(false);
    paragraph->gotoEndOfParagraph(true);
    for (const FoundField& field : fieldsIn(cursor)) {
        const Reference<css::text::XFormField> form(field.object, UNO_QUERY);
        if (!form.is() || !field.code.empty()) continue;
        parametersOf(form)->insertByName(OUString::createFromAscii(kCodeParameter),
                                         css::uno::Any(toUno(trimBlanks(code))));
        return;
    }
}

}  // namespace mergeloom::libreoffice
