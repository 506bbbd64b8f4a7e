#include "xml/RecordBuilder.h"

#include "xml/modNamedItems.h"

#include <utility>

namespace mergeloom {

namespace {

/// The length of the shortest element, "<a/>".
constexpr std::size_t kSmallestElement = 4;

}  // namespace

RecordBuilder::Kind RecordBuilder::kindOf(std::string_view localName) const {
    const Kind around = innerKind();
    if (around == Kind::Rich || around == Kind::Markup) return Kind::Markup;
    const bool isInValue =
        around == Kind::Display || around == Kind::Bound || around == Kind::Plain || around == Kind::InValue;
    switch (structureElementOf(localName)) {
        case StructureElement::Records:
            return Kind::Records;
        case StructureElement::Record:
            return Kind::Record;
        case StructureElement::Control:
            return Kind::Control;
        case StructureElement::DisplayValue:
            return Kind::Display;
        case StructureElement::BoundValue:
            return Kind::Bound;
        case StructureElement::RichText:
            return Kind::Rich;
        case StructureElement::PlainText:
            return Kind::Plain;
        case StructureElement::Image:
            return Kind::Image;
        default:
            return isInValue ? Kind::InValue : Kind::Other;
    }
}

void RecordBuilder::startElement(std::string_view localName) {
    size_ += kSmallestElement;
    const Kind kind = kindOf(localName);
    if (kind == Kind::Records && innerKind() == Kind::Control) controls_.back().isSubform = true;
    if (!elements_.empty() && kind != Kind::InValue) elements_.back().hasElements = true;
    elements_.push_back({kind});
    switch (kind) {
        case Kind::Other:
        case Kind::Records:
        case Kind::InValue:
            return;
        case Kind::Record:
            records_.emplace_back();
            controlsAround_.push_back(controls_.size());
            return;
        case Kind::Control:
            controls_.emplace_back();
            return;
        case Kind::Markup:
            return startMarkup(localName);
        default:
            values_.emplace_back();
    }
}

void RecordBuilder::addAttribute(std::string_view localName, std::string_view value) {
    size_ += value.size();
    const Kind kind = innerKind();
    if (kind == Kind::Markup) {
        values_.back().append(" ").append(localName).append("=\"").append(value).append("\"");
        return;
    }
    if (kind != Kind::Control) return;
    const auto attribute = static_cast<Attribute>(NamedItemIndex(NamedItemList::Attributes, localName));
    if (attribute == Attribute::Name) controls_.back().name = value;
    if (attribute == Attribute::Image) controls_.back().image = value;
}

void RecordBuilder::addText(std::string_view text) {
    size_ += text.size();
    const Kind kind = innerKind();
    const bool isContainer =
        kind == Kind::Other || kind == Kind::Records || kind == Kind::Record || kind == Kind::Control;
    if (isContainer) return;
    if (kind == Kind::Markup) closeStartTag();
    values_.back() += text;
}

void RecordBuilder::endElement() {
    const Element element = elements_.back();
    elements_.pop_back();
    switch (element.kind) {
        case Kind::Other:
        case Kind::Records:
        case Kind::InValue:
            return;
        case Kind::Record:
            return finishRecord();
        case Kind::Control:
            return finishControl();
        case Kind::Markup:
            return endMarkup();
        default:
            return finishValue(element);
    }
}

void RecordBuilder::startMarkup(std::string_view localName) {
    closeStartTag();
    values_.back().append("<").append(localName);
    markup_.emplace_back(localName);
    startTagIsOpen_ = true;
}

void RecordBuilder::closeStartTag() {
    if (startTagIsOpen_) values_.back() += ">";
    startTagIsOpen_ = false;
}

void RecordBuilder::endMarkup() {
    closeStartTag();
    values_.back().append("</").append(markup_.back()).append(">");
    markup_.pop_back();
}

void RecordBuilder::finishRecord() {
    Record record = std::move(records_.back());
    records_.pop_back();
    const std::size_t around = controlsAround_.back();
    controlsAround_.pop_back();
    const std::size_t aroundOuter = controlsAround_.empty() ? 0 : controlsAround_.back();
    if (around > aroundOuter) {
        controls_.back().records.push_back(std::move(record));
    } else if (records_.empty()) {
        handler_(record);
    }
}

void RecordBuilder::finishControl() {
    // The first control of a name is the one of its place.
    const bool isTaken = !records_.empty() && records_.back().find(controls_.back().name) == nullptr;
    if (isTaken) records_.back().controls.push_back(std::move(controls_.back()));
    controls_.pop_back();
}

void RecordBuilder::finishValue(const Element& element) {
    std::string value = std::move(values_.back());
    values_.pop_back();
    const std::size_t around = controlsAround_.empty() ? 0 : controlsAround_.back();
    if (controls_.size() == around) return;
    RecordControl& control = controls_.back();
    switch (element.kind) {
        case Kind::Display:
            // Text between the elements of a rich text is only white space of the document.
            if (!element.hasElements) control.displayValue = std::move(value);
            return;
        case Kind::Bound:
            control.boundValue = std::move(value);
            return;
        case Kind::Rich:
            control.richText = std::move(value);
            return;
        case Kind::Plain:
            control.plainText = std::move(value);
            return;
        default:
            control.image = std::move(value);
    }
}

}  // namespace mergeloom
