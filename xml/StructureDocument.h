#pragma once

#include "xml/StructureReader.h"
#include "xml/XmlNode.h"

#include <memory>
#include <string>
#include <string_view>

namespace mergeloom {

/// The structure document: the description of a database and, where exported, its data.
class StructureDocument {
  public:
    StructureDocument();
    StructureDocument(const StructureDocument&) = delete;
    StructureDocument& operator=(const StructureDocument&) = delete;
    ~StructureDocument();

    /// Loads the document from a file, in any encoding that its declaration or byte order mark names. When
    /// that fails the answer is false, the document is empty and parseError tells why. Nodes of what was
    /// loaded before are gone.
    bool Load(const std::string& path);
    /// The same from a text.
    bool loadXML(std::string_view text);

    /// Why the last loading failed: a sentence that names the file, the line and the parser's reason.
    [[nodiscard]] const ParseError& parseError() const { return parseError_; }

    /// The document element; none when nothing is loaded.
    [[nodiscard]] XmlNode documentElement() const;

    /// The file that an Image attribute names, or an empty text when there is none. A relative path leads
    /// from the folder of the document's file, else from the current folder.
    [[nodiscard]] std::string findPicture(const std::string& image) const;

  private:
    bool read(const ByteReader& bytes, const std::string& name);

    std::unique_ptr<pugi::xml_document> document_;
    ParseError parseError_;
    std::string folder_;
};

}  // namespace mergeloom
