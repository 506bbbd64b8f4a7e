#include "office/graft/ParagraphKey.h"

#include "office/model/word/FieldCode.h"

#include <string_view>
#include <vector>

namespace mergeloom::graft {

namespace {

using opc::WordTag;

bool isContainer(WordTag tag) {
    switch (tag) {
        case WordTag::ContentControl:
        case WordTag::CustomXml:
        case WordTag::SmartTag:
        case WordTag::Hyperlink:
        case WordTag::Insertion:
        case WordTag::Deletion:
        case WordTag::MoveFrom:
        case WordTag::MoveTo:
        case WordTag::Direction:
            return true;
        default:
            return false;
    }
}

/// Returns the container's name, attributes and properties without its content.
std::string describe(pugi::xml_node container, const opc::WordNames& names, const CanonicalXml& canonical) {
    const bool isControl = names.tagOf(container) == WordTag::ContentControl;
    if (isControl) return canonical.of(container.child(names.element("sdtPr").c_str()));
    pugi::xml_document shell;
    pugi::xml_node copy = shell.append_child(container.name());
    for (const pugi::xml_attribute attribute : container.attributes())
        copy.append_copy(attribute);
    return canonical.of(copy);
}

/// Joins the pieces of a paragraph that have the same format.
class KeyWriter {
  public:
    KeyWriter(const opc::WordNames& names, const CanonicalXml& canonical)
        : names_(names), canonical_(canonical) {}

    void read(pugi::xml_node parent, const std::string& context) {
        for (const pugi::xml_node child : parent.children())
            readChild(child, context);
    }
    std::string take() { return std::move(key_); }

  private:
    struct Field {
        std::string code;
        bool isInCode = true;
    };

    void readChild(pugi::xml_node child, const std::string& context) {
        const WordTag tag = names_.tagOf(child);
        if (tag == WordTag::ParagraphProperties) return;
        if (tag == WordTag::Run) return readRun(child, context);
        if (tag == WordTag::ContentControl) {
            return read(names_.child(child, WordTag::ContentControlContent),
                        context + describe(child, names_, canonical_));
        }
        if (isContainer(tag)) return read(child, context + describe(child, names_, canonical_));
        if (tag == WordTag::SimpleField) return readSimpleField(child, context);
        add(context, canonical_.of(child));
    }
    void readRun(pugi::xml_node run, const std::string& context) {
        const std::string format = context + canonical_.of(names_.child(run, WordTag::RunProperties));
        for (const pugi::xml_node child : run.children())
            readRunChild(child, format);
    }
    void readRunChild(pugi::xml_node child, const std::string& format) {
        const WordTag tag = names_.tagOf(child);
        if (tag == WordTag::RunProperties) return;
        if (tag == WordTag::FieldCharacter) return readMark(child, format);
        if (isInComputedText()) return;
        if (tag == WordTag::InstructionText && !fields_.empty()) fields_.back().code += child.text().get();
        add(format, tag == WordTag::TextElement ? std::string(child.text().get()) : canonical_.of(child));
    }
    void readMark(pugi::xml_node mark, const std::string& format) {
        const std::string_view type = names_.value(mark, "fldCharType");
        if (type == "begin") fields_.emplace_back();
        if (type == "separate" && !fields_.empty()) fields_.back().isInCode = false;
        if (type == "end" && !fields_.empty()) fields_.pop_back();
        if (!isInComputedText()) add(format, canonical_.of(mark));
    }
    void readSimpleField(pugi::xml_node field, const std::string& context) {
        const std::string code = names_.value(field, "instr");
        const std::string inside = context + "{" + code + "}";
        add(inside, "{}");
        if (word::hasTextOfItsOwn(code)) read(field, inside);
    }
    [[nodiscard]] bool isInComputedText() const {
        for (const Field& field : fields_)
            if (!field.isInCode && !word::hasTextOfItsOwn(field.code)) return true;
        return false;
    }
    void add(const std::string& format, const std::string& content) {
        if (content.empty()) return;
        if (format != format_) key_.append("\x01").append(format).append("\x02");
        format_ = format;
        key_ += content;
    }

    const opc::WordNames& names_;
    const CanonicalXml& canonical_;
    std::vector<Field> fields_;
    std::string format_ = "\x03";
    std::string key_;
};

}  // namespace

std::string paragraphKey(pugi::xml_node paragraph, const opc::WordNames& names,
                         const CanonicalXml& canonical) {
    KeyWriter writer(names, canonical);
    writer.read(paragraph, {});
    return canonical.of(names.child(paragraph, WordTag::ParagraphProperties)) + writer.take();
}

std::string rowKey(pugi::xml_node row, const opc::WordNames& names, const CanonicalXml& canonical) {
    std::string key = canonical.of(row.child(names.element("trPr").c_str()));
    // pugixml keeps a pointer to the name of the children that it lists.
    const std::string element = names.element("tc");
    for (const pugi::xml_node cell : row.children(element.c_str()))
        key += canonical.of(cell.child(names.element("tcPr").c_str()));
    const pugi::xml_node table = names.ancestor(row, WordTag::Table);
    key += canonical.of(table.child(names.element("tblPr").c_str()));
    return key + canonical.of(table.child(names.element("tblGrid").c_str()));
}

std::string containersOf(pugi::xml_node node, pugi::xml_node root, const opc::WordNames& names,
                         const CanonicalXml& canonical) {
    std::string all;
    for (pugi::xml_node around = node.parent(); around && around != root; around = around.parent())
        if (isContainer(names.tagOf(around))) all.insert(0, describe(around, names, canonical));
    return all;
}

}  // namespace mergeloom::graft
