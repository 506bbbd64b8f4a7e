#pragma once

#include <pugixml.hpp>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace mergeloom {

/// Raised for a document that is refused though it may be well-formed. The text is a sentence without its
/// full stop.
class DocumentRefused : public std::runtime_error {
    using std::runtime_error::runtime_error;
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
    void startElement(const char* prefix, const char* localName);
    /// Adds an attribute to the element that was started last.
    void addAttribute(const char* prefix, const char* localName, std::string_view value);
    void endElement();
    void addText(std::string_view text);
    void addCData(std::string_view text);
    void addComment(const char* text);
    void addProcessingInstruction(const char* target, const char* data);

    /// Returns the approximate size in bytes of the tree, written without entities.
    [[nodiscard]] std::size_t size() const { return size_; }

  private:
    pugi::xml_node appendElement(const char* name);
    pugi::xml_attribute knownAttribute(const char* name);
    pugi::xml_attribute appendAttribute(const char* name);
    pugi::xml_node appendChild(pugi::xml_node_type type);
    void finishText();

    // The elements and attributes of the vocabulary. They were parsed, and a copy of a parsed node shares its
    // name; a name of its own for every node would make the tree a quarter larger.
    pugi::xml_node vocabulary_;
    pugi::xml_node lastElement_;                       // of the vocabulary
    std::vector<pugi::xml_attribute> lastAttributes_;  // of the vocabulary, by their number in their element
    std::size_t attributeCount_ = 0;                   // of the current element
    pugi::xml_node current_;
    int depth_ = 0;
    std::size_t size_ = 0;
    std::string text_;
};

}  // namespace mergeloom
