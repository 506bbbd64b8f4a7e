#include "office/model/word/FieldCode.h"

#include "base/Text.h"

#include <algorithm>
#include <iterator>

namespace mergeloom::word {

namespace {

constexpr std::string_view kSeparators = " \t\r\n\v\f";

struct Keyword {
    std::string_view word;
    WdFieldType type;
};

constexpr Keyword kKeywords[] = {
    {"ADDRESSBLOCK", WdFieldType::wdFieldAddressBlock},
    {"ASK", WdFieldType::wdFieldAsk},
    {"FILLIN", WdFieldType::wdFieldFillIn},
    {"GREETINGLINE", WdFieldType::wdFieldGreetingLine},
    {"IF", WdFieldType::wdFieldIf},
    {"MERGEFIELD", WdFieldType::wdFieldMergeField},
    {"MERGEREC", WdFieldType::wdFieldMergeRec},
    {"MERGESEQ", WdFieldType::wdFieldMergeSeq},
    {"NEXT", WdFieldType::wdFieldNext},
    {"NEXTIF", WdFieldType::wdFieldNextIf},
    {"QUOTE", WdFieldType::wdFieldQuote},
    {"SET", WdFieldType::wdFieldSet},
    {"SKIPIF", WdFieldType::wdFieldSkipIf},
};

bool isSeparator(char character) {
    return kSeparators.find(character) != std::string_view::npos;
}

void skipSeparators(std::string_view& code) {
    code.remove_prefix(std::min(code.find_first_not_of(kSeparators), code.size()));
}

/// Takes the text in quotes off that the code begins with; a text that no quote ends goes to the code's end.
std::string takeQuoted(std::string_view& code) {
    std::string text;
    code.remove_prefix(1);
    while (!code.empty() && code.front() != '"') {
        const bool isEscaped = code.starts_with("\\\"") || code.starts_with("\\\\");
        code.remove_prefix(isEscaped ? 1 : 0);
        text += code.front();
        code.remove_prefix(1);
    }
    code.remove_prefix(code.empty() ? 0 : 1);
    return text;
}

std::string takeWord(std::string_view& code) {
    const std::size_t length = std::min(code.find_first_of(" \t\r\n\v\f\""), code.size());
    std::string word(code.substr(0, length));
    code.remove_prefix(length);
    return word;
}

}  // namespace

std::vector<std::string> piecesOfCode(std::string_view code) {
    std::vector<std::string> pieces;
    for (skipSeparators(code); !code.empty(); skipSeparators(code))
        pieces.push_back(code.front() == '"' ? takeQuoted(code) : takeWord(code));
    return pieces;
}

std::string quotedPiece(const std::string& text) {
    return '"' + replaceAll(replaceAll(text, "\\", "\\\\"), "\"", "\\\"") + '"';
}

std::string shownCode(std::string_view code) {
    std::string shown;
    bool isQuoted = false;
    for (const char character : code) {
        if (character == '"') isQuoted = !isQuoted;
        const bool isRun = isSeparator(character) && !isQuoted && shown.ends_with(' ');
        if (!isRun) shown += isSeparator(character) ? ' ' : character;
    }
    return std::string(trimBlanks(shown));
}

WdFieldType typeOfCode(std::string_view code) {
    skipSeparators(code);
    const std::string word = takeWord(code);
    const auto isIt = [&](const Keyword& keyword) { return equalsIgnoringAsciiCase(keyword.word, word); };
    const auto* const found = std::ranges::find_if(kKeywords, isIt);
    return found == std::end(kKeywords) ? WdFieldType::wdFieldEmpty : found->type;
}

bool hasTextOfItsOwn(std::string_view code) {
    skipSeparators(code);
    return code.starts_with("FORMTEXT") || code.starts_with("HYPERLINK") || code.starts_with("FILLIN");
}

bool isInMailMergeFields(WdFieldType type) {
    switch (type) {
        case WdFieldType::wdFieldMergeField:
        case WdFieldType::wdFieldMergeRec:
        case WdFieldType::wdFieldMergeSeq:
        case WdFieldType::wdFieldNext:
        case WdFieldType::wdFieldNextIf:
        case WdFieldType::wdFieldSkipIf:
            return true;
        default:
            return false;
    }
}

}  // namespace mergeloom::word
