#pragma once

#include "base/FileStore.h"
#include "office/opc/Relationships.h"
#include "office/opc/ZipReader.h"

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

namespace mergeloom::embedded {

/// The contents of the parts that differ from those of the template, by their names in the archive.
using ChangedParts = std::unordered_map<std::string, std::string>;

/// The archive of a template. Each letter is a copy of it with some parts replaced or added; the other
/// entries are copied without unpacking.
class LetterArchive {
  public:
    LetterArchive(std::string bytes, opc::Conformance conformance);

    [[nodiscard]] opc::Conformance conformance() const { return conformance_; }
    [[nodiscard]] bool has(std::string_view entryName) const { return find(entryName) != nullptr; }
    /// Returns the content of an entry, which must exist.
    [[nodiscard]] std::string read(std::string_view entryName) const {
        return reader_.read(*find(entryName));
    }

    /// Writes the archive with the changed parts. New parts are appended.
    void write(ByteSink& sink, ChangedParts& changed) const;

  private:
    [[nodiscard]] const opc::ZipEntry* find(std::string_view entryName) const;

    std::unique_ptr<const std::string> bytes_;  ///< on the heap, since the reader refers to it
    opc::ZipReader reader_;
    opc::Conformance conformance_;
};

/// Returns the name of the entry of a part.
std::string entryNameOf(std::string_view partName);

}  // namespace mergeloom::embedded
