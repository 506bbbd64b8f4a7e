#include "xml/RecordBuilder.h"

#include "xml/modNamedItems.h"

#include <utility>

namespace mergeloom {

namespace {

/// The length of "<a/>".
constexpr std::size_t kSmallestElement = 4;

}  // namespace

RecordBuilder::Kind RecordBuilder::kindOf(std::string_view localName) const {
    const Kind around = innerKind();
    if (around == Kind::Rich || around == Kind::Markup) return Kind::Markup;
    switch (structureElementOf(localName)) {
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
            return Kind::Other;
    }
}

void RecordBuilder::startElement(std::string_view localName) {
    size_ += kSmallestElement;
    const Kind kind = kindOf(localName);
    if (kind == Kind::Markup) startMarkup(localName);
    if (!frames_.empty()) frames_.back().hasElements = true;
    frames_.push_back({kind});
    if (kind == Kind::Markup) frames_.back().text = localName;
}

void RecordBuilder::addAttribute(std::string_view localName, std::string_view value) {
    size_ += value.size();
    Frame& frame = frames_.back();
    if (frame.kind == Kind::Markup) {
        Frame* rich = enclosing(Kind::Rich);
        rich->text += " " + std::string(localName) + "=\"" + std::string(value) + '"';
        return;
    }
    if (frame.kind != Kind::Control) return;
    const auto attribute = static_cast<Attribute>(NamedItemIndex(NamedItemList::Attributes, localName));
    if (attribute == Attribute::Name) frame.control.name = value;
    if (attribute == Attribute::Image) frame.control.image = value;
}

void RecordBuilder::addText(std::string_view text) {
    size_ += text.size();
    if (frames_.empty()) return;
    const Kind kind = innerKind();
    if (kind == Kind::Markup) {
        closeStartTag();
        enclosing(Kind::Rich)->text += text;
    } else if (kind != Kind::Other && kind != Kind::Record && kind != Kind::Control) {
        frames_.back().text += text;
    }
}

void RecordBuilder::endElement() {
    Frame frame = std::move(frames_.back());
    frames_.pop_back();
    finish(frame);
}

RecordBuilder::Frame* RecordBuilder::enclosing(Kind kind) {
    for (auto frame = frames_.rbegin(); frame != frames_.rend(); ++frame) {
        if (frame->kind == kind) return &*frame;
    }
    return nullptr;
}

void RecordBuilder::startMarkup(std::string_view localName) {
    closeStartTag();
    enclosing(Kind::Rich)->text += "<" + std::string(localName);
    startTagIsOpen_ = true;
}

void RecordBuilder::closeStartTag() {
    if (startTagIsOpen_) enclosing(Kind::Rich)->text += ">";
    startTagIsOpen_ = false;
}

void RecordBuilder::finish(Frame& frame) {
    switch (frame.kind) {
        case Kind::Other:
            return;
        case Kind::Record:
            return finishRecord(frame);
        case Kind::Control:
            return finishControl(frame);
        case Kind::Markup:
            closeStartTag();
            enclosing(Kind::Rich)->text += "</" + frame.text + ">";
            return;
        default:
            return finishValue(frame);
    }
}

void RecordBuilder::finishRecord(Frame& frame) {
    if (Frame* control = enclosing(Kind::Control)) {
        control->control.records.push_back(std::move(frame.record));
    } else if (!enclosing(Kind::Record)) {
        handler_(frame.record);
    }
}

void RecordBuilder::finishControl(Frame& frame) {
    Frame* outer = enclosing(Kind::Record);
    if (outer != nullptr) outer->record.controls.push_back(std::move(frame.control));
}

void RecordBuilder::finishValue(Frame& frame) {
    Frame* owner = enclosing(Kind::Control);
    if (owner == nullptr) return;
    RecordControl& control = owner->control;
    switch (frame.kind) {
        case Kind::Display:
            // Between the elements of a rich text there is only the document's own white space.
            if (!frame.hasElements) control.displayValue = std::move(frame.text);
            return;
        case Kind::Bound:
            control.boundValue = std::move(frame.text);
            return;
        case Kind::Rich:
            control.richText = std::move(frame.text);
            return;
        case Kind::Plain:
            control.plainText = std::move(frame.text);
            return;
        default:
            control.image = std::move(frame.text);
    }
}

}  // namespace mergeloom
