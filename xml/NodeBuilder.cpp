#include "xml/NodeBuilder.h"

#include "xml/modNamedItems.h"

#include <cstring>
#include <new>

namespace mergeloom {

namespace {

/// White space as XML 1.0 defines it (production 3).
constexpr const char* kWhiteSpace = " \t\r\n";

/// The length of "<a/>".
constexpr std::size_t kSmallestNode = 4;

/// Raises std::bad_alloc for a false result, by which the tree reports exhausted memory.
void require(bool done) {
    if (!done) throw std::bad_alloc();
}

/// A name as the document writes it. Most have no prefix, so that no text is made for them.
class QualifiedName {
  public:
    QualifiedName(const char* prefix, const char* localName) : localName_(localName) {
        if (prefix != nullptr) prefixed_ = std::string(prefix) + ":" + localName;
    }
    [[nodiscard]] const char* text() const { return prefixed_.empty() ? localName_ : prefixed_.c_str(); }

  private:
    const char* localName_;
    std::string prefixed_;
};

/// Returns an element with all attributes of the vocabulary and one with all its elements.
std::string vocabulary() {
    std::string name;
    std::string attributes;
    for (std::int32_t i = 0; !(name = AttributeName(i)).empty(); ++i)
        attributes += " " + name + "=''";
    std::string elements;
    for (std::int32_t i = 0; !(name = StructureElementName(i)).empty(); ++i)
        elements += "<" + name + "/>";
    return "<attributes" + attributes + "/><elements>" + elements + "</elements>";
}

}  // namespace

NodeBuilder::NodeBuilder(pugi::xml_document& document)
    : vocabulary_(document.append_child("vocabulary")), current_(document) {
    const std::string xml = vocabulary();
    require(vocabulary_.append_buffer(xml.data(), xml.size()));
}

NodeBuilder::~NodeBuilder() {
    vocabulary_.parent().remove_child(vocabulary_);
}

void NodeBuilder::checkNesting(int elementsAround) {
    if (elementsAround < kMaxNesting) return;
    throw DocumentRefused("Elements are nested more than " + std::to_string(kMaxNesting) + " levels deep");
}

void NodeBuilder::startElement(const char* prefix, const char* localName) {
    checkNesting(depth_);
    ++depth_;
    finishText();
    current_ = appendElement(QualifiedName(prefix, localName).text());
    attributeCount_ = 0;
    size_ += kSmallestNode;
}

void NodeBuilder::addAttribute(const char* prefix, const char* localName, std::string_view value) {
    pugi::xml_attribute attribute = appendAttribute(QualifiedName(prefix, localName).text());
    require(attribute.set_value(value.data(), value.size()));
    size_ += value.size();
}

pugi::xml_node NodeBuilder::appendElement(const char* name) {
    if (std::strcmp(lastElement_.name(), name) != 0) lastElement_ = vocabulary_.last_child().child(name);
    const pugi::xml_node element =
        lastElement_ ? current_.append_copy(lastElement_) : current_.append_child(name);
    require(!element.empty());
    return element;
}

/// Returns the attribute of the vocabulary with the name. Compares the attribute at the same position of the
/// previous element first, since elements of one kind usually have the same attributes in the same order.
pugi::xml_attribute NodeBuilder::knownAttribute(const char* name) {
    if (attributeCount_ == lastAttributes_.size()) lastAttributes_.emplace_back();
    pugi::xml_attribute& last = lastAttributes_[attributeCount_++];
    if (std::strcmp(last.name(), name) != 0) last = vocabulary_.first_child().attribute(name);
    return last;
}

pugi::xml_attribute NodeBuilder::appendAttribute(const char* name) {
    const pugi::xml_attribute known = knownAttribute(name);
    const pugi::xml_attribute attribute =
        known ? current_.append_copy(known) : current_.append_attribute(name);
    require(!attribute.empty());
    return attribute;
}

void NodeBuilder::endElement() {
    finishText();
    current_ = current_.parent();
    --depth_;
}

void NodeBuilder::addText(std::string_view text) {
    text_ += text;
    size_ += text.size();
}

void NodeBuilder::addCData(std::string_view text) {
    size_ += text.size();
    require(appendChild(pugi::node_cdata).set_value(text.data(), text.size()));
}

void NodeBuilder::addComment(const char* text) {
    // Comments outside the document element are never read.
    if (depth_ > 0) require(appendChild(pugi::node_comment).set_value(text));
}

void NodeBuilder::addProcessingInstruction(const char* target, const char* data) {
    if (depth_ == 0) return;
    pugi::xml_node instruction = appendChild(pugi::node_pi);
    require(instruction.set_name(target));
    require(instruction.set_value(data == nullptr ? "" : data));
}

pugi::xml_node NodeBuilder::appendChild(pugi::xml_node_type type) {
    finishText();
    pugi::xml_node child = current_.append_child(type);
    require(!child.empty());
    size_ += kSmallestNode;
    return child;
}

void NodeBuilder::finishText() {
    if (text_.find_first_not_of(kWhiteSpace) != std::string::npos) {
        pugi::xml_node text = current_.append_child(pugi::node_pcdata);
        require(!text.empty() && text.set_value(text_.data(), text_.size()));
    }
    text_.clear();
}

}  // namespace mergeloom
