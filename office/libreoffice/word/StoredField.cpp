#include "office/libreoffice/word/StoredField.h"

#include "base/Text.h"
#include "office/model/word/FieldCode.h"

#include <string_view>

namespace mergeloom::libreoffice {

namespace {

using word::WdFieldType;

TextObject fieldOf(WdFieldType type, const std::string& code) {
    return {.kind = ObjectKind::Field, .place = {}, .fieldType = type, .fieldCode = code};
}

TextObject fieldOfCode(const std::string& code) {
    return fieldOf(word::typeOfCode(code), " " + std::string(trimBlanks(code)) + " ");
}

/// A field that Writer does not know carries its code as a parameter.
TextObject unknownField(const pugi::xml_node& start) {
    for (const pugi::xml_node parameter : start.children("field:param")) {
        const std::string_view name = parameter.attribute("field:name").value();
        if (name.ends_with(".code")) return fieldOfCode(parameter.attribute("field:value").value());
    }
    return {};
}

bool hasCondition(const pugi::xml_node& element) {
    const std::string_view condition = element.attribute("text:condition").value();
    return !condition.empty() && condition != "ooow:" && condition != "ooow:TRUE";
}

std::string asPiece(const std::string& name) {
    return word::piecesOfCode(name) == std::vector{name} ? name : word::quotedPiece(name);
}

/// The name and the argument after it. Writer keeps the prompt of ASK with the quotes around it.
std::string nameAnd(const pugi::xml_node& element, const char* argument) {
    const std::string name = asPiece(element.attribute("text:name").value());
    const std::string text(trimBlanks(element.attribute(argument).value()));
    return name + " " + (text.starts_with('"') ? text : word::quotedPiece(text));
}

}  // namespace

TextObject storedField(const pugi::xml_node& element) {
    const std::string_view name = element.name();
    if (name == "field:fieldmark-start") return unknownField(element);
    if (name == "text:database-display")
        return fieldOfCode("MERGEFIELD " + asPiece(element.attribute("text:column-name").value()));
    if (name == "text:conditional-text") return fieldOf(WdFieldType::wdFieldIf, "");
    if (name == "text:database-next")
        return hasCondition(element) ? fieldOf(WdFieldType::wdFieldNextIf, "") : fieldOfCode("NEXT");
    // Writer takes MERGEREC for the choice of a record.
    if (name == "text:database-row-select" || name == "text:database-row-number")
        return fieldOfCode("MERGEREC");
    if (name == "text:variable-input") return fieldOfCode("ASK " + nameAnd(element, "text:description"));
    if (name == "text:variable-set") return fieldOfCode("SET " + nameAnd(element, "office:string-value"));
    if (name == "text:text-input")
        return fieldOfCode("FILLIN " + word::quotedPiece(element.attribute("text:description").value()));
    return {};
}

}  // namespace mergeloom::libreoffice
