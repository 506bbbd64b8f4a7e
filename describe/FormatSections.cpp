#include "describe/FormatSections.h"

#include "base/Text.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace mergeloom::describe {

namespace {

constexpr std::array<std::string_view, 8> kColours{"black", "blue",    "green",  "cyan",
                                                   "red",   "magenta", "yellow", "white"};
/// Characters that are shown as they are.
constexpr std::string_view kPlainSigns = " -+$()/:'=~{}^";

/// Takes tokens from the front of a section.
class TokenReader {
  public:
    TokenReader(std::string_view section, std::string_view signs) : rest_(section), signs_(signs) {}

    std::optional<std::vector<FormatToken>> read() {
        while (!rest_.empty()) {
            if (!take()) return std::nullopt;
        }
        return std::move(tokens_);
    }

  private:
    bool take() {
        const char first = rest_.front();
        if (first == '"') return takeQuoted();
        if (first == '\\') return takeCharacterAfter(true);
        if (first == '*') return takeCharacterAfter(false);
        if (first == '[') return takeColour();
        if (signs_.find(first) != std::string_view::npos) {
            tokens_.push_back({first});
            rest_.remove_prefix(1);
            return true;
        }
        if (isAscii(first) && kPlainSigns.find(first) == std::string_view::npos) return false;
        takeLiteral();
        return true;
    }

    bool takeQuoted() {
        const std::size_t end = rest_.find('"', 1);
        if (end == std::string_view::npos) return false;
        tokens_.push_back({'\0', std::string(rest_.substr(1, end - 1))});
        rest_.remove_prefix(end + 1);
        return true;
    }

    bool takeCharacterAfter(bool isShown) {
        rest_.remove_prefix(1);
        if (rest_.empty()) return false;
        takeLiteral();
        if (!isShown) tokens_.pop_back();
        return true;
    }

    bool takeColour() {
        const std::size_t end = rest_.find(']');
        if (end == std::string_view::npos) return false;
        const std::string name = toLowerAscii(rest_.substr(1, end - 1));
        if (std::ranges::find(kColours, name) == kColours.end()) return false;
        rest_.remove_prefix(end + 1);
        return true;
    }

    void takeLiteral() {
        std::string_view after = rest_;
        takeCodePoint(after);
        tokens_.push_back({'\0', std::string(rest_.substr(0, rest_.size() - after.size()))});
        rest_ = after;
    }

    std::string_view rest_;
    std::string_view signs_;
    std::vector<FormatToken> tokens_;
};

}  // namespace

std::vector<std::string_view> formatSections(std::string_view format) {
    std::vector<std::string_view> sections;
    std::size_t begin = 0;
    bool isQuoted = false;
    for (std::size_t place = 0; place < format.size(); ++place) {
        if (format[place] == '"') isQuoted = !isQuoted;
        if (isQuoted) continue;
        if (format[place] == '\\')
            ++place;
        else if (format[place] == ';') {
            sections.push_back(format.substr(begin, place - begin));
            begin = place + 1;
        }
    }
    sections.push_back(format.substr(begin));
    return sections;
}

std::optional<std::vector<FormatToken>> tokensOf(std::string_view section, std::string_view signs) {
    return TokenReader(section, signs).read();
}

std::optional<std::string> literalOf(std::string_view section) {
    const std::optional<std::vector<FormatToken>> tokens = tokensOf(section, {});
    if (!tokens) return std::nullopt;
    std::string text;
    for (const FormatToken& token : *tokens)
        text += token.literal;
    return text;
}

}  // namespace mergeloom::describe
