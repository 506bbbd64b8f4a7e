#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace mergeloom::embedded {

/// The problem of a part: a clause that continues "its part ...", such as "is not well-formed XML".
class BadXml : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

enum class TagKind { Start, Empty, End };

/// Iterates over the tags of an XML text without building a tree. Everything between them (text, comments,
/// CDATA, processing instructions) is skipped. Nesting and the form of tags and attributes are checked on the
/// way. The text must outlive the scanner, which returns pieces of it.
class XmlScanner {
  public:
    explicit XmlScanner(std::string_view xml);

    /// Moves to the next tag. Returns false after the last one. Raises BadXml for text that is not
    /// well-formed, for a document type definition, and for nesting that is deeper than in any real part.
    bool next();
    /// Moves from a start tag to the end tag of its element.
    void skipElement();
    /// Calls visit at the tag of each child of the element at whose start tag the scanner is, and ends at the
    /// end tag. The visit may move through the child to its end tag.
    template <typename Visit>
    void forEachChild(Visit visit) {
        if (kind_ != TagKind::Start) return;
        const std::size_t depth = depth_;
        while (next() && depth_ > depth) {
            visit();
            skipElement();
        }
    }
    /// Returns the whole element at whose start tag the scanner is, and moves to the end tag.
    std::string_view takeElement();

    [[nodiscard]] TagKind kind() const { return kind_; }
    /// Returns the name as written, with its prefix.
    [[nodiscard]] std::string_view name() const { return name_; }
    /// Returns the text between the name and the end of the tag.
    [[nodiscard]] std::string_view attributes() const { return attributes_; }
    [[nodiscard]] std::string_view tag() const { return xml_.substr(begin_, end_ - begin_); }
    /// Return the offsets of the tag in the text.
    [[nodiscard]] std::size_t begin() const { return begin_; }
    [[nodiscard]] std::size_t end() const { return end_; }
    /// Returns the depth of the tag's element; 1 for the outermost.
    [[nodiscard]] std::size_t depth() const { return depth_; }

  private:
    [[noreturn]] void refuse(const std::string& reason, std::size_t offset) const;
    void checkBlank(std::size_t from, std::size_t to) const;
    std::size_t skipMarkup(std::size_t open) const;
    std::size_t skipPast(std::string_view closing, std::size_t open, std::size_t from) const;
    std::size_t nameEnd(std::size_t begin) const;
    std::size_t skipAttribute(std::size_t offset) const;
    void readStartTag(std::size_t open);
    void readEndTag(std::size_t open);

    std::string_view xml_;
    std::vector<std::string_view> open_;
    TagKind kind_ = TagKind::End;
    std::string_view name_;
    std::string_view attributes_;
    std::size_t begin_ = 0;
    std::size_t end_ = 0;
    std::size_t depth_ = 0;
};

/// Returns a name without its namespace prefix.
std::string_view localNameOf(std::string_view name);
/// Returns the prefix of a name: "x:" or nothing.
std::string_view prefixOf(std::string_view name);
/// Returns true if a name consists of that prefix and that local name.
bool isElement(std::string_view name, std::string_view prefix, std::string_view localName);

}  // namespace mergeloom::embedded
