#pragma once

#include "base/FileStore.h"
#include "office/opc/ContentTypes.h"
#include "office/opc/Relationships.h"
#include "office/opc/ZipReader.h"
#include "office/opc/ZipWriter.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <variant>
#include <vector>

namespace mergeloom::opc {

/// A digest by which most parts of different content are distinguished without reading them.
struct PartDigest {
    std::uint64_t size = 0;
    std::uint32_t crc = 0;

    friend bool operator<(const PartDigest& a, const PartDigest& b) {
        return a.size != b.size ? a.size < b.size : a.crc < b.crc;
    }
};

PartDigest digestOf(std::string_view content);

/// The parts of a package in the order of its archive: those of the archive that was read, until they are
/// replaced, followed by new ones. Names are compared by partKey.
class PartStore {
  public:
    PartStore() = default;
    /// Takes the whole archive. Raises kFileCouldNotBeRead.
    PartStore(std::string archive, const std::string& fileName, const ZipLimits& limits);

    [[nodiscard]] bool has(std::string_view partName) const;
    /// Returns none if there is no such part. Raises kFileCouldNotBeRead if it is damaged.
    [[nodiscard]] std::optional<std::string> read(std::string_view partName) const;
    /// Returns none if there is no such part. Does not unpack it.
    [[nodiscard]] std::optional<PartDigest> digest(std::string_view partName) const;
    /// Returns all names as stored, with a leading "/", except those of folders.
    [[nodiscard]] std::vector<std::string> names() const;

    /// Replaces a part in its place or appends it.
    void put(const std::string& partName, std::string content);
    void remove(std::string_view partName);

    /// Writes the archive. Replaced and new parts are packed one after the other and only kept packed from
    /// then on: no more than one large part is in memory twice, and the next save packs nothing again.
    void save(ByteSink& sink);

  private:
    struct Archive {
        Archive(std::string archive, const std::string& fileName, const ZipLimits& limits)
            : bytes(std::move(archive)), reader(bytes, fileName, limits) {}

        const std::string bytes;
        const ZipReader reader;
    };
    struct Removed {};
    using Content = std::variant<Removed, const ZipEntry*, std::string, PackedContent>;
    struct Slot {
        std::string entryName;
        Content content;
    };

    [[nodiscard]] const Slot* find(std::string_view partName) const;
    void append(const std::string& entryName, Content content);

    std::unique_ptr<const Archive> archive_;  ///< on the heap, so that views into it stay valid after a move
    std::vector<Slot> slots_;
    std::unordered_map<std::string, std::size_t> indexes_;
};

/// An Open Packaging Conventions package (ECMA-376 Part 2) in memory. Parts that are not changed remain in
/// the archive byte for byte and in their place. Part names start with "/" and are compared without regard to
/// case;
/// "/" alone means the package itself. Content types and relationships are edited through their objects,
/// which are written with the package; references to them are valid until the package is moved or, for
/// relationships, their source part is removed.
class Package {
  public:
    /// Takes the bytes of a package; the file's name is used in messages only. Raises kFileCouldNotBeRead
    /// with a sentence that names the file and its fault.
    static Package read(std::string bytes, const std::string& fileName, const ZipLimits& limits = {});
    /// Returns a package that contains only content types.
    static Package empty() { return Package(); }

    [[nodiscard]] const std::string& fileName() const { return fileName_; }
    [[nodiscard]] bool hasPart(const std::string& partName) const;
    /// Returns a part's content. Raises kFileCouldNotBeRead if it is missing or damaged.
    [[nodiscard]] std::string readPart(const std::string& partName) const;
    /// Returns the digest of a part without unpacking it. Raises kFileCouldNotBeRead if there is no such
    /// part.
    [[nodiscard]] PartDigest digestOfPart(const std::string& partName) const;
    /// Returns all parts in the archive's order, except those of relationships.
    [[nodiscard]] std::vector<std::string> partNames() const;

    /// Replaces a part in its place or appends it.
    void writePart(const std::string& partName, std::string bytes);
    /// Writes a part and sets its content type.
    void addPart(const std::string& partName, const std::string& contentType, std::string bytes);
    /// Removes a part, with its relationships and its own content type. Relationships to it are kept.
    void removePart(const std::string& partName);

    [[nodiscard]] ContentTypes& contentTypes() { return contentTypes_; }
    [[nodiscard]] const ContentTypes& contentTypes() const { return contentTypes_; }
    /// Raises kFileCouldNotBeRead if they are malformed.
    [[nodiscard]] Relationships& relationshipsOf(const std::string& partName);
    /// Returns the target of a part's first relationship of an Office Open XML type ("styles"); empty if
    /// there is no such relationship or part. Raises the errors of relationshipsOf.
    [[nodiscard]] std::string relatedPart(const std::string& sourcePart, std::string_view shortName);

    /// Returns the target of the package's officeDocument relationship. Raises kFileCouldNotBeRead if there
    /// is none.
    [[nodiscard]] std::string mainPart() const;
    [[nodiscard]] Conformance conformance() const;
    /// Returns true if the package has digital signatures (ECMA-376 Part 2, 10), which any change makes
    /// invalid.
    [[nodiscard]] bool isSigned() const;

    /// Writes the package. It can be written again, also after an error of the sink; the bytes are the same
    /// unless the package was changed.
    void write(ByteSink& sink);

  private:
    Package() : Package("", PartStore(), ContentTypes()) {}
    Package(std::string fileName, PartStore parts, ContentTypes contentTypes);

    [[noreturn]] void refuseMissing(const std::string& partName) const;
    [[nodiscard]] Relationships loadRelationships(const std::string& partName) const;
    [[nodiscard]] const Relationships& ownRelationships() const;
    void storeRelationships();
    void storeContentTypes();

    std::string fileName_;
    PartStore parts_;
    ContentTypes contentTypes_;
    std::map<std::string, Relationships> relationships_;  ///< those read so far, by their source's key
};

}  // namespace mergeloom::opc
