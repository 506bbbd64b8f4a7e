#include "office/embedded/parts/RichText.h"

#include "base/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace mergeloom::embedded {

namespace {

/// The sizes 1 to 7 of HTML in half points.
constexpr std::array kSizes = {15, 20, 24, 27, 36, 48, 72};

struct NamedText {
    std::string_view name;
    std::string_view value;
};
constexpr auto kEntities = std::to_array<NamedText>(
    {{"amp", "&"}, {"lt", "<"}, {"gt", ">"}, {"quot", "\""}, {"apos", "'"}, {"nbsp", "\u00A0"}});
constexpr auto kColors = std::to_array<NamedText>({{"black", "000000"},
                                                   {"silver", "C0C0C0"},
                                                   {"gray", "808080"},
                                                   {"white", "FFFFFF"},
                                                   {"maroon", "800000"},
                                                   {"red", "FF0000"},
                                                   {"purple", "800080"},
                                                   {"fuchsia", "FF00FF"},
                                                   {"green", "008000"},
                                                   {"lime", "00FF00"},
                                                   {"olive", "808000"},
                                                   {"yellow", "FFFF00"},
                                                   {"navy", "000080"},
                                                   {"blue", "0000FF"},
                                                   {"teal", "008080"},
                                                   {"aqua", "00FFFF"}});

template <std::size_t Count>
std::string_view valueNamed(const std::array<NamedText, Count>& texts, std::string_view name) {
    const auto found = std::ranges::find(texts, name, &NamedText::name);
    return found == texts.end() ? std::string_view() : found->value;
}

bool isSpace(char character) {
    return character == ' ' || character == '\t' || character == '\r' || character == '\n';
}

/// Returns the character of a named entity; empty for an unknown one.
std::string entityText(std::string_view name) {
    if (!name.starts_with('#')) return std::string(valueNamed(kEntities, name));
    const bool isHexadecimal = name.starts_with("#x") || name.starts_with("#X");
    name.remove_prefix(isHexadecimal ? 2 : 1);
    std::uint32_t number = 0;
    const auto [end, error] =
        std::from_chars(name.data(), name.data() + name.size(), number, isHexadecimal ? 16 : 10);
    if (error != std::errc() || end != name.data() + name.size() || number == 0) return {};
    std::string text;
    appendCodePoint(text, number);
    return text;
}

/// Appends text with entities replaced and white space collapsed, as HTML requires.
void appendHtmlText(std::string& text, std::string_view html) {
    while (!html.empty()) {
        const std::size_t end = html.starts_with('&') ? html.find(';') : std::string_view::npos;
        const std::string entity =
            end == std::string_view::npos ? std::string() : entityText(html.substr(1, end - 1));
        if (!entity.empty()) {
            text += entity;
            html.remove_prefix(end + 1);
            continue;
        }
        const char character = isSpace(html.front()) ? ' ' : html.front();
        html.remove_prefix(1);
        const bool isJoined = character == ' ' && text.ends_with(' ');
        if (!isJoined) text += character;
    }
}

struct Tag {
    std::string name;
    std::string_view attributes;
    bool isEnd = false;
    bool isEmpty = false;
};

Tag tagOf(std::string_view inside) {
    Tag tag;
    tag.isEnd = inside.starts_with('/');
    tag.isEmpty = inside.ends_with('/');
    inside = inside.substr(tag.isEnd ? 1 : 0, inside.size() - (tag.isEnd ? 1 : 0) - (tag.isEmpty ? 1 : 0));
    const auto end = std::ranges::find_if(inside, isSpace);
    const auto length = static_cast<std::size_t>(end - inside.begin());
    tag.name = toLowerAscii(inside.substr(0, length));
    tag.attributes = inside.substr(length);
    return tag;
}

/// Returns the value of an attribute of a tag; empty if it is absent.
std::string attributeOf(std::string_view attributes, std::string_view name) {
    const std::size_t found = findIgnoringAsciiCase(attributes, std::string(name) + "=");
    if (found == std::string_view::npos) return {};
    std::string_view value = attributes.substr(found + name.size() + 1);
    const bool isQuoted = value.starts_with('"') || value.starts_with('\'');
    const char end = isQuoted ? value.front() : ' ';
    if (isQuoted) value.remove_prefix(1);
    std::string text;
    appendHtmlText(text, value.substr(0, value.find(end)));
    return text;
}

std::string colorOf(const std::string& text) {
    const auto isHexadecimal = [](char c) {
        return isDigit(static_cast<unsigned char>(c)) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
    };
    if (text.starts_with('#')) {
        const std::string digits = text.substr(1);
        return digits.size() == 6 && std::ranges::all_of(digits, isHexadecimal) ? digits : std::string();
    }
    return std::string(valueNamed(kColors, toLowerAscii(text)));
}

int sizeOf(const std::string& text) {
    const bool isSize = text.size() == 1 && text.front() >= '1' && text.front() <= '7';
    return isSize ? kSizes[static_cast<std::size_t>(text.front() - '1')] : 0;
}

/// The elements without an end tag.
bool isVoid(std::string_view name) {
    return name == "br" || name == "hr" || name == "img";
}

bool isBlock(std::string_view name) {
    return name == "div" || name == "p" || name == "li" || name == "ul" || name == "ol" ||
           name == "blockquote";
}

/// Returns the position of the end of the tag that starts a text. Quoted values of attributes may contain
/// ">".
std::size_t endOfTag(std::string_view html) {
    char quote = 0;
    for (std::size_t position = 1; position < html.size(); ++position) {
        const char character = html[position];
        if (quote == 0 && character == '>') return position;
        const bool opens = quote == 0 && (character == '"' || character == '\'') && html[position - 1] == '=';
        if (opens) {
            quote = character;
        } else if (character == quote) {
            quote = 0;
        }
    }
    // A quote that is never closed is none.
    return quote == 0 ? std::string_view::npos : html.find('>');
}

class RichTextReader {
  public:
    std::optional<std::vector<RichParagraph>> read(std::string_view html) {
        while (!html.empty()) {
            const std::size_t open = std::min(html.find('<'), html.size());
            addText(html.substr(0, open));
            html.remove_prefix(open);
            if (html.empty()) break;
            const std::size_t close = endOfTag(html);
            if (close == std::string_view::npos || !take(tagOf(html.substr(1, close - 1))))
                return std::nullopt;
            html.remove_prefix(close + 1);
        }
        if (!open_.empty()) return std::nullopt;
        endParagraph();
        return std::move(paragraphs_);
    }

  private:
    struct Element {
        std::string name;
        RichFont font;
        int items = 0;
    };

    bool take(const Tag& tag) {
        const bool isName = !tag.name.empty() && tag.name.front() >= 'a' && tag.name.front() <= 'z';
        if (!isName) return false;
        if (isVoid(tag.name)) {
            // In data of elements a break has an end tag.
            if (tag.name == "br" && !tag.isEnd) addBreak();
            return true;
        }
        if (tag.isEnd) return end(tag.name);
        start(tag);
        return !tag.isEmpty || end(tag.name);
    }

    void start(const Tag& tag) {
        if (isBlock(tag.name)) endParagraph();
        if (tag.name == "li") startItem();
        open_.push_back({tag.name, font_});
        if (tag.name == "b" || tag.name == "strong") font_.bold = true;
        if (tag.name == "i" || tag.name == "em") font_.italic = true;
        if (tag.name == "u") font_.underline = true;
        if (tag.name == "font") readFont(tag.attributes);
    }

    void readFont(std::string_view attributes) {
        const std::string color = colorOf(attributeOf(attributes, "color"));
        const std::string face = attributeOf(attributes, "face");
        const int size = sizeOf(attributeOf(attributes, "size"));
        if (!color.empty()) font_.color = color;
        if (!face.empty()) font_.face = face;
        if (size != 0) font_.halfPoints = size;
    }

    void startItem() {
        const auto isList = [](const Element& element) {
            return element.name == "ul" || element.name == "ol";
        };
        const auto list = std::find_if(open_.rbegin(), open_.rend(), isList);
        if (list == open_.rend()) return;
        next_.list = list->name == "ol" ? RichList::Numbers : RichList::Bullets;
        next_.number = ++list->items;
        next_.depth = static_cast<int>(std::ranges::count_if(open_, isList));
        hasContent_ = true;
    }

    bool end(const std::string& name) {
        if (open_.empty() || open_.back().name != name) return false;
        font_ = open_.back().font;
        open_.pop_back();
        if (isBlock(name)) {
            // An empty block is an empty line.
            hasContent_ = hasContent_ || name == "div" || name == "p";
            const bool isOuter = wasBlock_ && next_.runs.empty() && (name != "li");
            if (isOuter) hasContent_ = false;
            endParagraph();
            wasBlock_ = true;
        }
        return true;
    }

    void addText(std::string_view html) {
        std::string text;
        appendHtmlText(text, html);
        const bool isAtStart = next_.runs.empty();
        if (isAtStart && text.starts_with(' ')) text.erase(0, 1);
        if (text.empty()) return;
        wasBlock_ = false;
        hasContent_ = true;
        add(text);
    }
    void addBreak() {
        wasBlock_ = false;
        hasContent_ = true;
        add("\n");
    }
    void add(const std::string& text) {
        if (!next_.runs.empty() && next_.runs.back().font == font_) {
            next_.runs.back().text += text;
        } else {
            next_.runs.push_back({text, font_});
        }
    }

    void endParagraph() {
        if (hasContent_) paragraphs_.push_back(std::move(next_));
        next_ = {};
        hasContent_ = false;
        wasBlock_ = false;
    }

    std::vector<RichParagraph> paragraphs_;
    std::vector<Element> open_;
    RichFont font_;
    RichParagraph next_;
    bool hasContent_ = false;
    bool wasBlock_ = false;  ///< true directly after the end of a block
};

}  // namespace

std::optional<std::vector<RichParagraph>> readRichText(std::string_view html) {
    return RichTextReader().read(html);
}

std::string listMarker(const RichParagraph& paragraph) {
    if (paragraph.list == RichList::None) return {};
    const std::string indent(static_cast<std::size_t>(std::max(0, paragraph.depth - 1)) * 4, ' ');
    const bool isNumbered = paragraph.list == RichList::Numbers;
    return indent + (isNumbered ? std::to_string(paragraph.number) + "." : "\u2022") + " ";
}

std::string plainTextOf(const std::vector<RichParagraph>& paragraphs) {
    std::string text;
    for (const RichParagraph& paragraph : paragraphs) {
        if (&paragraph != &paragraphs.front()) text += '\n';
        text += listMarker(paragraph);
        for (const RichRun& run : paragraph.runs)
            text += run.text;
    }
    return text;
}

std::string withoutTags(std::string_view html) {
    std::string text;
    while (!html.empty()) {
        const std::size_t open = std::min(html.find('<'), html.size());
        appendHtmlText(text, html.substr(0, open));
        html.remove_prefix(open);
        const std::size_t close = endOfTag(html);
        if (close == std::string_view::npos) break;
        html.remove_prefix(close + 1);
    }
    return text;
}

}  // namespace mergeloom::embedded
