#pragma once

#include <cstddef>
#include <pugixml.hpp>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace mergeloom {

/// Raised for a document that is refused though it may be well-formed. The text is a sentence without its
/// full stop.
class DocumentRefused : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The start tag of an element as a parser reports it. Names are those of the parser's dictionary: while a
/// document is parsed, equal names have one address. A prefix may be null.
struct StartTag {
    struct Attribute {
        const char* prefix;
        const char* localName;
        std::string_view value;
    };

    const char* prefix;
    const char* localName;
    std::span<const Attribute> attributes;
};

/// Builds the document's tree from a parser's events. Text between two other nodes becomes one node, or
/// none when it is nothing but white space. Elements may be nested kMaxNesting levels deep, so that
/// code that walks the tree may recurse.
class NodeBuilder {
  public:
    static constexpr int kMaxNesting = 250;

    /// The document must be empty and outlive the builder.
    explicit NodeBuilder(pugi::xml_document& document);
    NodeBuilder(const NodeBuilder&) = delete;
    NodeBuilder& operator=(const NodeBuilder&) = delete;
    ~NodeBuilder();

    /// Raises DocumentRefused for an element inside of that many others when it is nested too deeply.
    static void checkNesting(int elementsAround);

    /// Raises DocumentRefused for an element that is nested too deeply.
    void startElement(const StartTag& tag);
    void endElement();
    void addText(std::string_view text);
    void addCData(std::string_view text);
    void addComment(const char* text);
    void addProcessingInstruction(const char* target, const char* data);

    /// Returns the approximate size in bytes of the tree, written without entities.
    [[nodiscard]] std::size_t size() const { return size_; }

  private:
    /// The prefixes and local names of an element and of its attributes in their order.
    using Names = std::vector<const char*>;
    struct NamesHash {
        std::size_t operator()(const Names& names) const;
    };

    pugi::xml_node prototypeOf(const StartTag& tag);
    pugi::xml_node addPrototype(const StartTag& tag);
    pugi::xml_node appendChild(pugi::xml_node_type type);
    void finishText();

    // Elements without content, one for all elements of the same names, with the values of the first of them.
    // They were parsed, and a copy of a parsed node shares its texts. Texts of its own for every node would
    // make the tree a third larger: besides the names, values such as types and sections are often the same.
    pugi::xml_node prototypes_;
    std::unordered_map<Names, pugi::xml_node, NamesHash> prototypesByNames_;
    Names names_;                   // of the element that was started last
    pugi::xml_node lastPrototype_;  // of that element
    Names namesToFind_;
    pugi::xml_node current_;
    int depth_ = 0;
    std::size_t size_ = 0;
    std::string text_;
};

}  // namespace mergeloom
