#include "office/libreoffice/word/StoredField.h"

#include "base/Text.h"

#include <algorithm>
#include <string_view>

namespace mergeloom::libreoffice {

namespace {

using word::WdFieldType;

struct CodeWord {
    std::string_view word;
    WdFieldType type;
};

constexpr CodeWord kCodeWords[] = {
    {"IF", WdFieldType::wdFieldIf},
    {"MERGEFIELD", WdFieldType::wdFieldMergeField},
    {"MERGEREC", WdFieldType::wdFieldMergeRec},
    {"MERGESEQ", WdFieldType::wdFieldMergeSeq},
    {"NEXT", WdFieldType::wdFieldNext},
    {"NEXTIF", WdFieldType::wdFieldNextIf},
    {"QUOTE", WdFieldType::wdFieldQuote},
    {"SKIPIF", WdFieldType::wdFieldSkipIf},
};

TextObject fieldOf(WdFieldType type, const std::string& code) {
    return {.kind = ObjectKind::Field, .place = {}, .fieldType = type, .fieldCode = code};
}

TextObject fieldOfCode(const std::string& code) {
    const std::string_view trimmed = trimBlanks(code);
    const std::string_view word = trimmed.substr(0, trimmed.find(' '));
    const auto isIt = [&](const CodeWord& known) { return equalsIgnoringAsciiCase(known.word, word); };
    const auto* const found = std::ranges::find_if(kCodeWords, isIt);
    const bool isKnown = found != std::end(kCodeWords);
    return fieldOf(isKnown ? found->type : WdFieldType::wdFieldEmpty, " " + std::string(trimmed) + " ");
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

}  // namespace

TextObject storedField(const pugi::xml_node& element) {
    const std::string_view name = element.name();
    if (name == "field:fieldmark-start") return unknownField(element);
    if (name == "text:database-display")
        return fieldOfCode("MERGEFIELD " + std::string(element.attribute("text:column-name").value()));
    if (name == "text:conditional-text") return fieldOf(WdFieldType::wdFieldIf, "");
    if (name == "text:database-next")
        return hasCondition(element) ? fieldOf(WdFieldType::wdFieldNextIf, "") : fieldOfCode("NEXT");
    // Writer takes MERGEREC for the choice of a record.
    if (name == "text:database-row-select" || name == "text:database-row-number")
        return fieldOfCode("MERGEREC");
    return {};
}

}  // namespace mergeloom::libreoffice
