#pragma once

#include "doubles/WordFiles.h"
#include "office/graft/PackageGraft.h"

#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace mergeloom::graft {

/// A part besides the body, such as a header, which the body refers to as "rIdNAME".
struct ExtraPart {
    std::string kind;  ///< of its relationship: "header"
    std::string name;  ///< "/word/header1.xml"
    std::string xml;
};

inline const std::string kNamespaces =
    "xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\" "
    "xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\" "
    "xmlns:mc=\"http://schemas.openxmlformats.org/markup-compatibility/2006\"";

inline std::string fileWith(const std::string& body, const std::vector<ExtraPart>& parts = {}) {
    opc::Package package = opc::Package::read(wordFile(body), "test.docx");
    for (const ExtraPart& part : parts) {
        package.addPart(
            part.name, "application/vnd.openxmlformats-officedocument.wordprocessingml." + part.kind + "+xml",
            part.xml);
        package.relationshipsOf(kMainPart).addPart(
            opc::officeRelationshipType(part.kind, opc::Conformance::Transitional), part.name);
    }
    return packageBytes(package);
}

inline std::string textXml(const std::string& text) {
    const bool hasBlanks = text.front() == ' ' || text.back() == ' ';
    return (hasBlanks ? "<w:t xml:space=\"preserve\">" : "<w:t>") + text + "</w:t>";
}

inline std::string paragraph(const std::string& text) {
    return "<w:p><w:r>" + textXml(text) + "</w:r></w:p>";
}

inline std::string run(const std::string& text, const std::string& properties = "") {
    return "<w:r>" + (properties.empty() ? "" : "<w:rPr>" + properties + "</w:rPr>") + textXml(text) +
           "</w:r>";
}

inline std::string marked(const std::string& name, const std::string& inside) {
    return "<w:bookmarkStart w:id=\"1\" w:name=\"" + name + "\"/>" + inside + "<w:bookmarkEnd w:id=\"1\"/>";
}

/// The runs of an original have properties that exports lack, and the exports have properties of their own.
inline const std::string kOwn = "<w:color w:val=\"4F81BD\" w:themeColor=\"accent1\"/>";
inline const std::string kShown = "<w:color w:val=\"4F81BD\"/><w:kern w:val=\"0\"/>";

inline std::string bodyOf(const std::string& bytes) {
    const std::string xml = opc::Package::read(bytes, "test.docx").readPart(kMainPart);
    const std::size_t start = xml.find("<w:body>") + 8;
    return xml.substr(start, xml.rfind("</w:body>") - start);
}

/// The original, the export of the opened document and that of the edited one.
struct Triple {
    std::string original;
    std::string baseline;
    std::string edited;

    [[nodiscard]] model::GraftResult graft() const {
        return makePackageGraft()->graft({DocumentKind::Word, 12, "test.docx", original, baseline, edited});
    }
    [[nodiscard]] std::string fault(const std::string& proof, const std::string& again = {}) const {
        const auto found = makePackageGraft()->findFault(
            {DocumentKind::Word, 12, "test.docx", original, baseline, edited}, again, proof);
        return found ? found->reason : "";
    }
};

/// Returns the body of the grafted document, or the reason of a refusal.
inline std::string resultOf(const model::GraftResult& result) {
    if (std::holds_alternative<model::NothingChanged>(result)) return "nothing changed";
    if (const auto* const refusal = std::get_if<model::GraftRefusal>(&result))
        return "refused: " + refusal->reason;
    return bodyOf(std::get<model::GraftedPackage>(result).bytes);
}

inline const std::string kLast = paragraph("Last");

/// The bodies of a triple, and the result of its graft.
struct GraftCase {
    std::string what;
    std::string original;
    std::string baseline;
    std::string edited;
    std::string expected;

    [[nodiscard]] std::string result() const {
        return resultOf(Triple{wordFile(original), wordFile(baseline), wordFile(edited)}.graft());
    }
};

}  // namespace mergeloom::graft
