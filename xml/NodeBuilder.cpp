#include "xml/NodeBuilder.h"

#include <algorithm>
#include <functional>
#include <new>
#include <sstream>

namespace mergeloom {

namespace {

/// More than any real document needs. Without a bound, elements of ever new names would all be kept twice.
constexpr std::size_t kMaxPrototypes = 1000;

/// Returns true for a text of nothing but white space as XML 1.0 defines it (production 3).
bool isWhiteSpace(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return c == ' ' || c == '\n' || c == '\t' || c == '\r'; });
}

/// The length of "<a/>".
constexpr std::size_t kSmallestNode = 4;

/// Raises std::bad_alloc for a false result, by which the tree reports exhausted memory.
void require(bool done) {
    if (!done) throw std::bad_alloc();
}

std::string nameOf(const char* prefix, const char* localName) {
    return prefix == nullptr ? localName : std::string(prefix) + ":" + localName;
}

}  // namespace

std::size_t NodeBuilder::NamesHash::operator()(const Names& names) const {
    constexpr std::size_t kFactor = 31;
    std::size_t hash = 0;
    for (const char* const name : names)
        hash = hash * kFactor + std::hash<const char*>()(name);
    return hash;
}

NodeBuilder::NodeBuilder(pugi::xml_document& document)
    : prototypes_(document.append_child("prototypes")), current_(document) {
    require(!prototypes_.empty());
}

NodeBuilder::~NodeBuilder() {
    prototypes_.parent().remove_child(prototypes_);
}

void NodeBuilder::checkNesting(int elementsAround) {
    if (elementsAround < kMaxNesting) return;
    throw DocumentRefused("Elements are nested more than " + std::to_string(kMaxNesting) + " levels deep");
}

void NodeBuilder::startElement(const StartTag& tag) {
    checkNesting(depth_);
    ++depth_;
    finishText();
    current_ = current_.append_copy(prototypeOf(tag));
    require(!current_.empty());
    size_ += kSmallestNode;
    pugi::xml_attribute attribute = current_.first_attribute();
    for (const auto& [prefix, localName, value] : tag.attributes) {
        const bool isShared = !attribute.empty() && attribute.value() == value;
        require(isShared || attribute.set_value(value.data(), value.size()));
        size_ += value.size();
        attribute = attribute.next_attribute();
    }
}

/// Compares the names with those of the previous element first, since elements of one kind follow each other
/// and usually have the same attributes in the same order.
pugi::xml_node NodeBuilder::prototypeOf(const StartTag& tag) {
    namesToFind_.assign({tag.prefix, tag.localName});
    for (const StartTag::Attribute& attribute : tag.attributes) {
        namesToFind_.push_back(attribute.prefix);
        namesToFind_.push_back(attribute.localName);
    }
    if (namesToFind_ == names_) return lastPrototype_;
    names_.swap(namesToFind_);
    const auto known = prototypesByNames_.find(names_);
    lastPrototype_ = known != prototypesByNames_.end() ? known->second : addPrototype(tag);
    return lastPrototype_;
}

pugi::xml_node NodeBuilder::addPrototype(const StartTag& tag) {
    if (prototypesByNames_.size() == kMaxPrototypes) {
        prototypesByNames_.clear();
        prototypes_.remove_children();
    }
    pugi::xml_document written;
    pugi::xml_node element = written.append_child(nameOf(tag.prefix, tag.localName).c_str());
    for (const auto& [prefix, localName, value] : tag.attributes) {
        pugi::xml_attribute attribute = element.append_attribute(nameOf(prefix, localName).c_str());
        require(attribute.set_value(value.data(), value.size()));
    }
    std::ostringstream xml;
    written.print(xml, "", pugi::format_raw);
    const std::string bytes = xml.str();
    require(prototypes_.append_buffer(bytes.data(), bytes.size(), pugi::parse_escapes, pugi::encoding_utf8));
    return prototypesByNames_[names_] = prototypes_.last_child();
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
    if (!isWhiteSpace(text_)) {
        pugi::xml_node text = current_.append_child(pugi::node_pcdata);
        require(!text.empty() && text.set_value(text_.data(), text_.size()));
    }
    text_.clear();
}

}  // namespace mergeloom
