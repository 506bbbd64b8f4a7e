#include "describe/RecordWriter.h"

#include "xml/modNamedItems.h"

#include <sstream>

namespace mergeloom::describe {

namespace {

const std::string kControl = StructureElementName(StructureElement::Control);
const std::string kRecord = StructureElementName(StructureElement::Record);
const std::string kRecords = StructureElementName(StructureElement::Records);
const std::string kDisplayValue = StructureElementName(StructureElement::DisplayValue);
const std::string kBoundValue = StructureElementName(StructureElement::BoundValue);

/// Collects the written bytes in a text.
class TextSink final : public ByteSink {
  public:
    void write(std::span<const char> bytes) override { text.append(bytes.data(), bytes.size()); }
    std::string text;
};

std::string startTag(const std::string& controlName) {
    TextSink sink;
    XmlStream xml(sink);
    xml.markup("<" + kControl + " " + AttributeName(Attribute::Name) + "=\"").text(controlName).markup("\"");
    xml.flush();
    return sink.text;
}

std::string tag(const std::string& name) {
    return "<" + name + ">";
}

std::string endTag(const std::string& name) {
    return "</" + name + ">";
}

/// Returns true if the displayed text does not determine the value.
bool isStoredApart(bool isLookedUp, const Column& column) {
    return isLookedUp || !column.format.empty() || column.type == ColumnType::Boolean ||
           column.type == ColumnType::Decimal || column.type == ColumnType::Date ||
           column.type == ColumnType::Time || column.type == ColumnType::DateAndTime;
}

}  // namespace

RecordWriter::RecordWriter(XmlStream& xml, const ValueFormat& format, PictureFolder* pictures,
                           const ObjectDesign& object)
    : xml_(xml), format_(format), pictures_(pictures), objectName_(object.name) {
    for (const ControlDesign& control : object.controls)
        controls_.push_back({control.type, control.lookup.has_value(), control.lookedUp, control.values,
                             control.column, startTag(control.name)});
    for (const SubformDesign& subform : object.subforms) {
        subformStarts_.push_back(startTag(subform.name));
        subforms_.emplace_back(xml, format, pictures, subform.form);
    }
}

void RecordWriter::write(RecordReader& reader) {
    xml_.markup(tag(kRecord));
    for (std::size_t number = 0; number < controls_.size(); ++number)
        writeControl(controls_[number], reader.value(number), reader.shownValue(number));
    for (std::size_t number = 0; number < subforms_.size(); ++number) {
        xml_.markup(subformStarts_[number]).markup(">").markup(tag(kRecords));
        RecordReader& rows = *reader.subforms()[number];
        while (rows.nextOf(reader))
            subforms_[number].write(rows);
        xml_.markup(endTag(kRecords)).markup(endTag(kControl));
    }
    xml_.markup(endTag(kRecord)).markup("\n");
}

void RecordWriter::remarkBytes(const std::function<void(const std::string&)>& remark) const {
    for (const ControlMarkup& control : controls_) {
        if (!control.hasBytes) continue;
        remark("The column '" + control.column.name + "' of '" + objectName_ +
               "' has values that are left out: they are bytes.");
    }
    for (const RecordWriter& subform : subforms_)
        subform.remarkBytes(remark);
}

void RecordWriter::writeControl(ControlMarkup& control, const Value& value, const Value& shown) {
    xml_.markup(control.start);
    if (control.type == ControlType::BoundObjectFrame) return writePicture(control, value);
    xml_.markup(">");
    control.hasBytes = control.hasBytes || value.kind == Value::Kind::Bytes;
    format_.write(value, control.column, text_);
    if (control.isLookedUp) {
        format_.write(shown, control.lookedUp, shownText_);
        // A key that refers to no row shows itself.
        if (shown.kind != Value::Kind::Null) text_.shown = shownText_.shown;
    } else if (const std::string* const listed = control.values.shownFor(text_, control.column.type)) {
        text_.shown = *listed;
    }
    writeValue(kDisplayValue, text_.shown);
    const bool hasStored = value.kind != Value::Kind::Null &&
                           isStoredApart(control.isLookedUp || !control.values.isEmpty(), control.column);
    if (hasStored || text_.stored != text_.shown) writeValue(kBoundValue, text_.stored);
    xml_.markup(endTag(kControl));
}

void RecordWriter::writeValue(const std::string& element, std::string_view text) {
    xml_.markup("<").markup(element).markup(">").text(text).markup("</").markup(element).markup(">");
}

void RecordWriter::writePicture(const ControlMarkup& control, const Value& value) {
    const std::string image =
        pictures_ == nullptr ? std::string() : pictures_->add(control.column.name, value.text);
    if (!image.empty()) {
        xml_.markup(" ").markup(AttributeName(Attribute::Image)).markup("=\"").text(image).markup("\"");
    }
    xml_.markup("/>");
}

}  // namespace mergeloom::describe
