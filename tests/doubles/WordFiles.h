#pragma once

#include "doubles/MemoryFileStore.h"
#include "doubles/PackageBytes.h"
#include "office/model/word/Document.h"
#include "office/opc/Relationships.h"

#include <string>

/// Word files in memory, made from plain texts and shown as such.
namespace mergeloom {

inline const std::string kMainPart = "/word/document.xml";

/// Returns a document file with the XML in its body.
inline std::string wordFile(const std::string& bodyXml) {
    const std::string type =
        "application/vnd.openxmlformats-officedocument.wordprocessingml.document.main+xml";
    opc::Package package = opc::Package::empty();
    package.addPart(kMainPart, type,
                    "<w:document xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\">"
                    "<w:body>" +
                        bodyXml + "</w:body></w:document>");
    const auto conformance = opc::Conformance::Transitional;
    package.relationshipsOf("/").addPart(opc::officeRelationshipType("officeDocument", conformance),
                                         kMainPart);
    return packageBytes(package);
}

/// Returns a document file with the XML in its settings.
inline std::string fileWithSettings(const std::string& body, const std::string& settings) {
    opc::Package package = opc::Package::read(wordFile(body), "settings.docx");
    package.addPart("/word/settings.xml",
                    "application/vnd.openxmlformats-officedocument.wordprocessingml.settings+xml",
                    "<w:settings xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\">" +
                        settings + "</w:settings>");
    package.relationshipsOf(kMainPart).addPart(
        opc::officeRelationshipType("settings", opc::Conformance::Transitional), "/word/settings.xml");
    return packageBytes(package);
}

inline std::string attributeOf(const std::string& tag, const std::string& name) {
    const std::size_t start = tag.find(" " + name + "=\"");
    if (start == std::string::npos) return {};
    const std::size_t value = start + name.size() + 3;
    return tag.substr(value, tag.find('"', value) - value);
}

/// Returns the text that shows one tag of a document: the ends of places, paragraphs and cells, and pictures.
inline std::string shownTag(const std::string& tag) {
    if (tag.starts_with("w:bookmarkStart")) return "[" + attributeOf(tag, "w:name") + ":";
    if (tag.starts_with("w:bookmarkEnd")) return "]";
    if (tag == "/w:p" || tag == "w:p/") return "\n";
    if (tag == "/w:tc") return "|";
    return tag == "/w:drawing" ? "<picture>" : "";
}

/// Returns the body of a document file as a text. Places are in brackets after their names, a line is a
/// paragraph, and the guard character is "^".
inline std::string shownBody(const std::string& bytes) {
    const std::string xml = opc::Package::read(bytes, "test.docx").readPart(kMainPart);
    std::string shown;
    std::size_t at = xml.find("<w:body>") + 8;
    while (at < xml.size()) {
        const std::size_t tag = xml.find('<', at);
        if (tag == std::string::npos) break;
        shown += xml.substr(at, tag - at);
        at = xml.find('>', tag) + 1;
        shown += shownTag(xml.substr(tag + 1, at - tag - 2));
    }
    const std::string guard = "\u200D";
    for (std::size_t i = shown.find(guard); i != std::string::npos; i = shown.find(guard, i)) {
        shown.replace(i, guard.size(), "^");
    }
    return shown;
}

/// Returns an open document in the notation of `shownBody`.
inline std::string shown(word::Document& document, MemoryFileStore& files) {
    document.SaveAs("/shown.docx", word::WdSaveFormat::wdFormatXMLDocument);
    return shownBody(files.files["/shown.docx"]);
}

}  // namespace mergeloom
