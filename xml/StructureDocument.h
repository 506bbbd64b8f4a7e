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

    /// Loads the document from a file, in any encoding that its declaration or byte order mark names. On
    /// failure it returns false, the document is empty and parseError returns the reason. Invalidates the
    /// nodes of the former document.
    bool Load(const std::string& path);
    /// Loads the document in the same way, and passes its records to the handler one by one. The tree of
    /// nodes has bound values only of data that are kept. Passes on the errors of the handler.
    bool Load(const std::string& path, const RecordHandler& records, DataUse use = DataUse::HandedOver);
    /// Loads the document from a text.
    bool loadXML(std::string_view text);

    /// Returns the reason why the last loading failed: a sentence that names the file, the line and the
    /// parser's reason.
    [[nodiscard]] const ParseError& parseError() const { return parseError_; }

    /// Returns the document element; null when no document is loaded.
    [[nodiscard]] XmlNode documentElement() const;

    /// Returns the file that an Image attribute names, or an empty text when there is none. A relative path
    /// is searched in the folder of the document's file, then in the current folder.
    [[nodiscard]] std::string findPicture(const std::string& image) const;

  private:
    bool load(const std::string& path, const RecordHandler* records, DataUse use);
    bool read(const ByteReader& bytes, const std::string& name, const RecordHandler* records = nullptr,
              DataUse use = DataUse::Kept);

    std::unique_ptr<pugi::xml_document> document_;
    ParseError parseError_;
    std::string folder_;
};

}  // namespace mergeloom
