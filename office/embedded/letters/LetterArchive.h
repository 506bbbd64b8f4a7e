#pragma once

#include "base/FileStore.h"
#include "office/opc/Relationships.h"
#include "office/opc/ZipReader.h"

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

namespace mergeloom::embedded {

/// The parts of a letter that differ from those of its template: their contents by their names in the
/// archive.
using ChangedParts = std::unordered_map<std::string, std::string>;

/// The archive of a template, of which each letter is a copy with some other parts. Parts that do not change
/// are copied as they are packed.
class LetterArchive {
  public:
    LetterArchive(std::string bytes, opc::Conformance conformance);

    [[nodiscard]] opc::Conformance conformance() const { return conformance_; }
    [[nodiscard]] bool has(std::string_view entryName) const { return find(entryName) != nullptr; }
    /// Returns the content of an entry that exists.
    [[nodiscard]] std::string read(std::string_view entryName) const {
        return reader_.read(*find(entryName));
    }

    /// Writes an archive with the changed parts, of which new ones come last.
    void write(ByteSink& sink, ChangedParts& changed) const;

  private:
    [[nodiscard]] const opc::ZipEntry* find(std::string_view entryName) const;

    std::unique_ptr<const std::string> bytes_;  ///< on the heap, since the reader refers to it
    opc::ZipReader reader_;
    opc::Conformance conformance_;
};

/// Returns the name of an entry for a part.
std::string entryNameOf(std::string_view partName);

}  // namespace mergeloom::embedded
