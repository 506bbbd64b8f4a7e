#include "describe/StructureWriter.h"

#include "xml/modNamedItems.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace mergeloom::describe {

namespace {

/// The names of sections as Access gives them, by FormSection.
constexpr std::array kSectionNames{"Detail", "FormHeader", "FormFooter", "PageHeader", "PageFooter"};

std::string numberOf(FormSection section) {
    return std::to_string(static_cast<int>(section));
}

/// Returns the sections of a form's controls in the order in which they appear.
std::vector<FormSection> sectionsOf(const ObjectDesign& form) {
    std::vector<FormSection> sections;
    const auto add = [&](FormSection section) {
        if (std::ranges::find(sections, section) == sections.end()) sections.push_back(section);
    };
    for (const ControlDesign& control : form.controls)
        add(control.section);
    for (const SubformDesign& subform : form.subforms)
        add(subform.section);
    if (sections.empty()) add(FormSection::Detail);
    return sections;
}

/// Writes the elements of the structure, one per line.
class StructureWriter {
  public:
    explicit StructureWriter(XmlStream& xml) : xml_(xml) {}

    void write(const ObjectDesign& object) {
        if (object.kind != StructureElement::Form) return writeTable(object);
        writeForm(object);
    }

    /// Runs the body between the tags of an element.
    template <typename Body>
    void element(StructureElement kind, const Body& body) {
        startLine().markup("<").markup(StructureElementName(kind));
        content(kind, body);
    }

  private:
    XmlStream& startLine() {
        for (int level = 0; level < depth_; ++level)
            xml_.markup("  ");
        return xml_;
    }

    /// Writes the start tag of an element with its name up to its attributes.
    void open(StructureElement kind, const std::string& name) {
        startLine().markup("<").markup(StructureElementName(kind));
        attribute(Attribute::Name, name);
    }
    void attribute(Attribute attribute, std::string_view value) {
        xml_.markup(" ").markup(AttributeName(attribute)).markup("=\"").text(value).markup("\"");
    }
    template <typename Number>
    void numberAttribute(Attribute name, Number value) {
        attribute(name, std::to_string(static_cast<int>(value)));
    }
    template <typename Body>
    void content(StructureElement kind, const Body& body) {
        xml_.markup(">\n");
        ++depth_;
        body();
        --depth_;
        startLine().markup("</").markup(StructureElementName(kind)).markup(">\n");
    }

    void writeTable(const ObjectDesign& object) {
        open(object.kind, object.name);
        numberAttribute(Attribute::CurrentView, View::Datasheet);
        content(object.kind, [&] {
            element(StructureElement::Controls, [&] {
                for (const ControlDesign& control : object.controls)
                    writeControl(control, {});
            });
        });
    }

    /// The view in which a form is open is that of a form or a datasheet, since the others cannot be mapped.
    void writeForm(const ObjectDesign& form) {
        open(StructureElement::Form, form.name);
        const bool isDatasheet = form.view == DefaultView::Datasheet;
        numberAttribute(Attribute::CurrentView, isDatasheet ? View::Datasheet : View::Form);
        numberAttribute(Attribute::DefaultView, form.view);
        numberAttribute(Attribute::HasRecordset, form.hasRecords ? 1 : 0);
        content(StructureElement::Form, [&] {
            element(StructureElement::Sections, [&] {
                for (const FormSection section : sectionsOf(form))
                    writeSection(form, section);
            });
        });
    }

    void writeSection(const ObjectDesign& form, FormSection section) {
        open(StructureElement::Section, kSectionNames.at(static_cast<std::size_t>(section)));
        attribute(Attribute::Number, numberOf(section));
        content(StructureElement::Section, [&] {
            element(StructureElement::Controls, [&] {
                for (const ControlDesign& control : form.controls) {
                    if (control.section == section) writeControl(control, numberOf(section));
                }
                for (const SubformDesign& subform : form.subforms) {
                    if (subform.section == section) writeSubform(subform);
                }
            });
        });
    }

    void writeControl(const ControlDesign& control, std::string_view section) {
        open(StructureElement::Control, control.name);
        attribute(Attribute::Caption, control.caption);
        attribute(Attribute::ControlType, ControlTypeName(control.type));
        if (!control.source.empty()) attribute(Attribute::ControlSource, control.source);
        if (!section.empty()) attribute(Attribute::Section, section);
        if (!control.image.empty()) attribute(Attribute::Image, control.image);
        xml_.markup("/>\n");
    }

    void writeSubform(const SubformDesign& subform) {
        open(StructureElement::Control, subform.name);
        attribute(Attribute::Caption, subform.caption);
        attribute(Attribute::ControlType, ControlTypeName(ControlType::Subform));
        attribute(Attribute::Section, numberOf(subform.section));
        content(StructureElement::Control, [&] { writeForm(subform.form); });
    }

    XmlStream& xml_;
    int depth_ = 1;
};

}  // namespace

void writeStructure(XmlStream& xml, std::span<const ObjectDesign> objects) {
    StructureWriter writer(xml);
    writer.element(StructureElement::Structure, [&] {
        for (const ObjectDesign& object : objects)
            writer.write(object);
    });
}

}  // namespace mergeloom::describe
