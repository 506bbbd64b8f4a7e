#include "office/libreoffice/readback/ContentDigest.h"
#include "office/model/word/FieldCode.h"
#include "office/opc/Package.h"
#include "office/opc/XmlPart.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <vector>

namespace mergeloom::libreoffice {

namespace {

/// Elements without text of their own: deleted text, repeated text and text that an office generates again.
constexpr std::string_view kSkipped[] = {"w:del", "w:moveFrom", "mc:Fallback", "w:rt"};
constexpr std::string_view kDocument = "/word/document.xml";

class WordReader {
  public:
    explicit WordReader(ContentDigest& digest) : story_(digest) {}

    void read(const pugi::xml_node& parent) {
        for (const pugi::xml_node child : parent.children())
            readElement(child);
    }
    [[nodiscard]] const std::string& text() const { return story_.text(); }

  private:
    struct Field {
        std::string code;
        bool isInCode = true;
    };

    void readElement(const pugi::xml_node& element) {
        const std::string_view name = element.name();
        if (std::ranges::find(kSkipped, name) != std::end(kSkipped)) return;
        if (name == "w:t") return readText(element);
        if (name == "w:instrText") return readCode(element);
        if (name == "w:fldChar") return readMark(element.attribute("w:fldCharType").value());
        if (name == "w:bookmarkStart")
            return story_.beginPlace(element.attribute("w:id").value(), element.attribute("w:name").value());
        if (name == "w:bookmarkEnd") return story_.endPlace(element.attribute("w:id").value());
        if (name == "w:fldSimple" && !word::hasTextOfItsOwn(element.attribute("w:instr").value())) return;
        if (isIndex(element) || isCovered(element)) return;
        if (isStoryOfItsOwn(element)) return WordReader(story_.digest()).read(element);
        read(element);
    }
    static bool isIndex(const pugi::xml_node& element) {
        return std::string_view(element.name()) == "w:sdt" && element.child("w:sdtPr").child("w:docPartObj");
    }
    static bool isCovered(const pugi::xml_node& element) {
        const pugi::xml_node merge = element.child("w:tcPr").child("w:vMerge");
        return merge && std::string_view(merge.attribute("w:val").value()) != "restart";
    }
    static bool isStoryOfItsOwn(const pugi::xml_node& element) {
        return std::string_view(element.name()) == "w:txbxContent" ||
               element.child("w:pPr").child("w:framePr");
    }
    void readText(const pugi::xml_node& element) {
        const auto counts = [](const Field& field) {
            return !field.isInCode && word::hasTextOfItsOwn(field.code);
        };
        if (std::ranges::all_of(fields_, counts)) story_.add(element.text().get());
    }
    void readCode(const pugi::xml_node& element) {
        if (!fields_.empty() && fields_.back().isInCode) fields_.back().code += element.text().get();
    }
    void readMark(std::string_view kind) {
        if (kind == "begin") return void(fields_.emplace_back());
        if (fields_.empty()) return;
        if (kind == "end") return fields_.pop_back();
        fields_.back().isInCode = false;
    }

    DigestedStory story_;
    std::vector<Field> fields_;  ///< open ones, from the outermost to the innermost
};

}  // namespace

ContentDigest digestOfWordPackage(const std::string& bytes, const std::string& fileName) {
    const opc::Package package = opc::Package::read(bytes, fileName);
    ContentDigest digest;
    for (const std::string& name : package.partNames()) {
        if (!name.starts_with("/word/") || !name.ends_with(".xml")) continue;
        const auto part = opc::XmlPart::parse(package.readPart(name), name, fileName);
        WordReader reader(digest);
        reader.read(part->root());
        if (name == kDocument) digest.text = reader.text();
    }
    return digest;
}

}  // namespace mergeloom::libreoffice
