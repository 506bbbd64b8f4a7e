#include "office/embedded/sheet/XmlScanner.h"

#include <array>
#include <cstring>

namespace mergeloom::embedded {

namespace {

constexpr std::size_t kMaxDepth = 1000;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

enum CharacterClass : unsigned char { kOther, kSpace, kNameStart, kNamePart };

constexpr std::array<CharacterClass, 256> makeClasses() {
    std::array<CharacterClass, 256> classes{};
    for (std::size_t code = 0x80; code < classes.size(); ++code)
        classes[code] = kNameStart;
    for (unsigned char letter = 'a'; letter <= 'z'; ++letter)
        classes[letter] = classes[letter - 'a' + 'A'] = kNameStart;
    for (const unsigned char sign : {'_', ':'})
        classes[sign] = kNameStart;
    for (const unsigned char sign : {'0', '1', '2', '3', '4', '5', '6', '7', '8', '9', '-', '.'})
        classes[sign] = kNamePart;
    for (const unsigned char sign : {' ', '\t', '\r', '\n'})
        classes[sign] = kSpace;
    return classes;
}

constexpr std::array<CharacterClass, 256> kClasses = makeClasses();

CharacterClass classOf(char character) {
    return kClasses[static_cast<unsigned char>(character)];
}

// The next three functions run millions of times in a large sheet; the piece that they read is usually one
// byte long.

char characterAt(std::string_view text, std::size_t offset) {
    return offset < text.size() ? text[offset] : '\0';
}

std::size_t skipSpaces(std::string_view text, std::size_t offset) {
    while (offset < text.size() && classOf(text[offset]) == kSpace)
        ++offset;
    return offset;
}

/// Returns the end of the name that begins at the offset; the offset itself if there is none.
std::size_t skipName(std::string_view text, std::size_t offset) {
    if (classOf(characterAt(text, offset)) != kNameStart) return offset;
    while (offset < text.size() && classOf(text[offset]) >= kNameStart)
        ++offset;
    return offset;
}

/// Returns the offset of a character at or after from; the size of the text if there is none.
std::size_t findCharacter(std::string_view text, char character, std::size_t from) {
    const void* found =
        from < text.size() ? std::memchr(text.data() + from, character, text.size() - from) : nullptr;
    return found ? static_cast<std::size_t>(static_cast<const char*>(found) - text.data()) : text.size();
}

}  // namespace

XmlScanner::XmlScanner(std::string_view xml) : xml_(xml) {
    if (xml.starts_with(kByteOrderMark)) end_ = kByteOrderMark.size();
}

bool XmlScanner::next() {
    std::size_t from = end_;
    while (true) {
        const bool isNext = characterAt(xml_, from) == '<';
        const std::size_t open = isNext ? from : findCharacter(xml_, '<', from);
        if (open_.empty()) checkBlank(from, open);
        if (open == xml_.size()) {
            if (!open_.empty()) refuse("an element does not end", open);
            return false;
        }
        const char character = characterAt(xml_, open + 1);
        if (character == '!' || character == '?') {
            from = skipMarkup(open);
            continue;
        }
        if (character == '/') {
            readEndTag(open);
        } else {
            readStartTag(open);
        }
        return true;
    }
}

void XmlScanner::skipElement() {
    if (kind_ != TagKind::Start) return;
    const std::size_t depth = depth_;
    while (next() && depth_ > depth) {
    }
}

std::string_view XmlScanner::takeElement() {
    const std::size_t begin = begin_;
    skipElement();
    return xml_.substr(begin, end_ - begin);
}

void XmlScanner::refuse(const std::string& reason, std::size_t offset) const {
    throw BadXml("is not well-formed XML (" + reason + " at byte " + std::to_string(offset) + ")");
}

void XmlScanner::checkBlank(std::size_t from, std::size_t to) const {
    if (skipSpaces(xml_, from) < to) refuse("text outside of all elements", from);
}

std::size_t XmlScanner::skipMarkup(std::size_t open) const {
    const std::string_view rest = xml_.substr(open);
    if (rest.starts_with("<?")) return skipPast("?>", open, open + 2);
    if (rest.starts_with("<!--")) return skipPast("-->", open, open + 4);
    if (rest.starts_with("<![CDATA[") && !open_.empty()) return skipPast("]]>", open, open + 9);
    if (rest.starts_with("<!DOCTYPE")) throw BadXml("carries a document type definition");
    refuse("a tag without a name", open);
}

std::size_t XmlScanner::skipPast(std::string_view closing, std::size_t open, std::size_t from) const {
    const std::size_t found = xml_.find(closing, from);
    if (found == std::string_view::npos) refuse("something that does not end", open);
    return found + closing.size();
}

std::size_t XmlScanner::nameEnd(std::size_t begin) const {
    const std::size_t end = skipName(xml_, begin);
    if (end == begin) refuse("a name was expected", begin);
    return end;
}

std::size_t XmlScanner::skipAttribute(std::size_t offset) const {
    const std::size_t equals = skipSpaces(xml_, nameEnd(offset));
    if (characterAt(xml_, equals) != '=') refuse("an attribute without a value", offset);
    std::size_t end = skipSpaces(xml_, equals + 1);
    const char quote = characterAt(xml_, end);
    if (quote != '"' && quote != '\'') refuse("a value without quotes", offset);
    // Most values are too short for memchr to be faster.
    for (++end; end < xml_.size() && xml_[end] != quote; ++end) {
        if (xml_[end] == '<') refuse("\"<\" in a value", end);
    }
    if (end == xml_.size()) refuse("a value that does not end", offset);
    return end + 1;
}

void XmlScanner::readStartTag(std::size_t open) {
    const std::size_t tagNameEnd = nameEnd(open + 1);
    std::size_t offset = tagNameEnd;
    while (true) {
        const std::size_t afterSpaces = skipSpaces(xml_, offset);
        const char character = characterAt(xml_, afterSpaces);
        if (character == '>' || character == '/') {
            offset = afterSpaces;
            break;
        }
        if (afterSpaces == offset) refuse("a tag that does not end", open);
        offset = skipAttribute(afterSpaces);
    }
    const bool isEmpty = characterAt(xml_, offset) == '/';
    if (isEmpty && characterAt(xml_, offset + 1) != '>') refuse("\"/\" inside of a tag", offset);
    kind_ = isEmpty ? TagKind::Empty : TagKind::Start;
    name_ = xml_.substr(open + 1, tagNameEnd - open - 1);
    attributes_ = xml_.substr(tagNameEnd, offset - tagNameEnd);
    begin_ = open;
    end_ = offset + (isEmpty ? 2 : 1);
    depth_ = open_.size() + 1;
    if (depth_ > kMaxDepth) throw BadXml("nests its elements too deep");
    if (!isEmpty) open_.push_back(name_);
}

void XmlScanner::readEndTag(std::size_t open) {
    const std::string_view rest = xml_.substr(open + 2);
    if (open_.empty() || !rest.starts_with(open_.back())) refuse("an end tag without its start tag", open);
    const std::size_t size = open_.back().size();
    const std::size_t close = skipSpaces(rest, size);
    if (close == size && classOf(characterAt(rest, close)) >= kNameStart) {
        refuse("an end tag without its start tag", open);
    }
    if (characterAt(rest, close) != '>') refuse("a tag that does not end", open);
    kind_ = TagKind::End;
    name_ = rest.substr(0, size);
    attributes_ = {};
    begin_ = open;
    end_ = open + 2 + close + 1;
    depth_ = open_.size();
    open_.pop_back();
}

std::string_view localNameOf(std::string_view name) {
    return name.substr(name.find(':') + 1);
}

std::string_view prefixOf(std::string_view name) {
    return name.substr(0, name.find(':') + 1);
}

bool isElement(std::string_view name, std::string_view prefix, std::string_view localName) {
    return name.size() == prefix.size() + localName.size() && name.starts_with(prefix) &&
           name.ends_with(localName);
}

}  // namespace mergeloom::embedded
