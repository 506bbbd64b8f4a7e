#include "office/embedded/text/WordElementFactory.h"

#include <string_view>

namespace mergeloom::embedded {

namespace {

bool isBlank(char character) {
    return character == ' ' || character == '\t' || character == '\n';
}

}  // namespace

WordElementFactory::WordElementFactory(opc::XmlPart& part, const opc::WordNames& names)
    : part_(part), names_(names) {
    const auto element = [&](std::string_view name, const std::string& inside) {
        return "<" + names.element(name) + inside + "</" + names.element(name) + ">";
    };
    const std::string id = " " + names.attribute("id") + "=\"0\"";
    const std::string name = " " + names.attribute("name") + "=\"n\"";
    const std::string blanks = " " + std::string(kSpaceAttribute) + "=\"preserve\"";
    const std::string source =
        "<prototypes>" + element("p", ">") + element("r", ">") + element("r", ">" + element("t", ">x")) +
        element("r", ">" + element("t", blanks + ">x")) + element("bookmarkStart", id + name + ">") +
        element("bookmarkEnd", id + ">") + "</prototypes>";
    // A new text is the value of its element, which saves a node for each.
    part.detachedNodes().append_buffer(source.data(), source.size(),
                                       pugi::parse_default | pugi::parse_embed_pcdata);
    paragraph_ = part.detachedNodes().last_child().first_child();
    run_ = paragraph_.next_sibling();
    textRun_ = run_.next_sibling();
    textRunWithBlanks_ = textRun_.next_sibling();
    bookmarkStart_ = textRunWithBlanks_.next_sibling();
    bookmarkEnd_ = bookmarkStart_.next_sibling();
}

pugi::xml_node WordElementFactory::addTextRun(const DomPlace& place, std::string_view text) {
    const pugi::xml_node run = copyTo(place, hasOuterBlanks(text) ? textRunWithBlanks_ : textRun_);
    run.first_child().text().set(text.data(), text.size());
    return run;
}

pugi::xml_node WordElementFactory::copyTo(const DomPlace& place, pugi::xml_node prototype) {
    pugi::xml_node parent = place.parent;
    return place.after ? parent.insert_copy_after(prototype, place.after) : parent.prepend_copy(prototype);
}

pugi::xml_node WordElementFactory::makeBookmarkStart(const std::string& id, const std::string& name) {
    return addBookmarkStart({part_.detachedNodes(), {}}, id, name);
}

pugi::xml_node WordElementFactory::addBookmarkStart(const DomPlace& place, const std::string& id,
                                                    const std::string& name) {
    const pugi::xml_node element = copyTo(place, bookmarkStart_);
    pugi::xml_attribute attribute = element.first_attribute();
    attribute.set_value(id.data(), id.size());
    attribute.next_attribute().set_value(name.data(), name.size());
    return element;
}

pugi::xml_node WordElementFactory::addBookmarkEnd(const DomPlace& place, const std::string& id) {
    const pugi::xml_node element = copyTo(place, bookmarkEnd_);
    element.first_attribute().set_value(id.data(), id.size());
    return element;
}

pugi::xml_node WordElementFactory::makeElement(std::string_view localName) {
    return part_.detachedNodes().append_child(names_.element(localName).c_str());
}

pugi::xml_node WordElementFactory::parse(const std::string& xml) {
    part_.detachedNodes().append_buffer(xml.data(), xml.size());
    return part_.detachedNodes().last_child();
}

pugi::xml_node WordElementFactory::makeLike(pugi::xml_node node) {
    pugi::xml_node element = part_.detachedNodes().append_child(node.name());
    for (const pugi::xml_attribute attribute : node.attributes())
        element.append_copy(attribute);
    return element;
}

bool hasOuterBlanks(std::string_view text) {
    return !text.empty() && (isBlank(text.front()) || isBlank(text.back()));
}

bool keepBlanks(pugi::xml_node textElement) {
    if (!hasOuterBlanks(textElement.child_value())) return false;
    if (textElement.attribute(kSpaceAttribute)) return false;
    textElement.append_attribute(kSpaceAttribute) = "preserve";
    return true;
}

}  // namespace mergeloom::embedded
