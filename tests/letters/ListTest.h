#pragma once

#include "letters/LetterTest.h"

#include <string>

namespace mergeloom {

/// Templates with lists, and with styles that number.
class ListTest : public LetterTest {
  protected:
    static std::string withLists(const std::string& body, const std::string& lists) {
        return withPart(wordFile(body), "numbering", lists);
    }
    static std::string withStyles(const std::string& file, const std::string& styles) {
        return withPart(file, "styles", styles);
    }
    /// Returns the properties of a paragraph in a list.
    static std::string inList(const std::string& list) {
        return "<w:numPr><w:ilvl w:val=\"0\"/><w:numId w:val=\"" + list + "\"/></w:numPr>";
    }
    static std::string ofStyle(const std::string& style) { return "<w:pStyle w:val=\"" + style + "\"/>"; }
    static std::string definition(const std::string& id, const std::string& format,
                                  const std::string& start) {
        return "<w:abstractNum w:abstractNumId=\"" + id + "\"><w:lvl w:ilvl=\"0\"><w:start w:val=\"" + start +
               "\"/><w:numFmt w:val=\"" + format + "\"/></w:lvl></w:abstractNum>";
    }
    static std::string list(const std::string& id, const std::string& definition) {
        return "<w:num w:numId=\"" + id + "\"><w:abstractNumId w:val=\"" + definition + "\"/></w:num>";
    }
    static std::string numberedStyle(const std::string& id, const std::string& list,
                                     const std::string& indents = "") {
        return basedStyle(id, "", list, indents);
    }
    /// Returns a style whose properties are its last child, as Word writes them.
    static std::string basedStyle(const std::string& id, const std::string& base, const std::string& list,
                                  const std::string& indents = "") {
        const std::string numbering =
            list.empty() ? "" : "<w:numPr><w:numId w:val=\"" + list + "\"/></w:numPr>";
        return "<w:style w:type=\"paragraph\" w:styleId=\"" + id + "\"><w:name w:val=\"" + id + "\"/>" +
               (base.empty() ? "" : "<w:basedOn w:val=\"" + base + "\"/>") + "<w:pPr>" + numbering + indents +
               "</w:pPr></w:style>";
    }

  private:
    /// Adds a part to a file, whose root has the name of the part.
    static std::string withPart(const std::string& file, const std::string& name,
                                const std::string& content) {
        opc::Package package = opc::Package::read(file, "lists.docx");
        const std::string part = "/word/" + name + ".xml";
        package.addPart(
            part, "application/vnd.openxmlformats-officedocument.wordprocessingml." + name + "+xml",
            "<w:" + name + " xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\">" +
                content + "</w:" + name + ">");
        package.relationshipsOf(kMainPart).addPart(
            opc::officeRelationshipType(name, opc::Conformance::Transitional), part);
        return packageBytes(package);
    }
};

}  // namespace mergeloom
