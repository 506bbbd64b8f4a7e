#include "office/embedded/letters/Token.h"

#include <charconv>

namespace mergeloom::embedded {

namespace {

constexpr std::string_view kOpen = kAnyToken;
constexpr std::string_view kClose = "\uFDD1";

}  // namespace

std::string Token::text() const {
    return std::string(kOpen) + static_cast<char>(kind) + std::to_string(number) + std::string(kClose);
}

std::optional<Token> Token::takeFirst(std::string_view& xml, std::string_view& before) {
    const std::string_view whole = xml;
    for (std::size_t open = whole.find(kOpen); open != std::string_view::npos;
         open = whole.find(kOpen, open + 1)) {
        const std::size_t close = whole.find(kClose, open);
        if (close == std::string_view::npos) break;
        const std::size_t end = close + kClose.size();
        const std::optional<Token> token = of(whole.substr(open, end - open));
        if (!token) continue;
        before = whole.substr(0, open);
        xml = whole.substr(end);
        return token;
    }
    before = whole;
    return std::nullopt;
}

std::optional<Token> Token::of(std::string_view text) {
    const std::size_t marks = kOpen.size() + 1 + kClose.size();
    if (text.size() <= marks || !text.starts_with(kOpen) || !text.ends_with(kClose)) return std::nullopt;
    Token token{static_cast<TokenKind>(text[kOpen.size()])};
    const char* const first = text.data() + kOpen.size() + 1;
    const char* const last = text.data() + text.size() - kClose.size();
    const auto [end, error] = std::from_chars(first, last, token.number);
    if (error != std::errc() || end != last) return std::nullopt;
    return token;
}

}  // namespace mergeloom::embedded
