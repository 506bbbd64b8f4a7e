#pragma once

#include "base/FileStore.h"
#include "office/opc/ZipReader.h"
#include "office/opc/ZipWriter.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <variant>
#include <vector>

namespace mergeloom::opc {

/// What tells the contents of most parts apart without looking at them.
struct PartDigest {
    std::uint64_t size = 0;
    std::uint32_t crc = 0;

    friend bool operator<(const PartDigest& a, const PartDigest& b) {
        return a.size != b.size ? a.size < b.size : a.crc < b.crc;
    }
};

PartDigest digestOf(std::string_view content);

/// The parts of a package in the order of its archive: those of the archive that was read, until they are
/// replaced, and new ones behind them. Names are looked up as partKey compares them.
class PartStore {
  public:
    PartStore() = default;
    /// Takes the whole archive. Raises kFileCouldNotBeRead.
    PartStore(std::string archive, const std::string& fileName, const ZipLimits& limits);

    [[nodiscard]] bool has(std::string_view partName) const;
    /// Nothing when there is no such part. Raises kFileCouldNotBeRead when it is damaged.
    [[nodiscard]] std::optional<std::string> read(std::string_view partName) const;
    /// Nothing when there is no such part. Costs no unpacking.
    [[nodiscard]] std::optional<PartDigest> digest(std::string_view partName) const;
    /// All names as stored, with a leading "/"; folders' entries are left out.
    [[nodiscard]] std::vector<std::string> names() const;

    /// Replaces a part in its place or appends it.
    void put(const std::string& partName, std::string content);
    void remove(std::string_view partName);

    /// Writes the archive. Replaced and new parts are packed one after the other, and from then on kept
    /// packed only: the memory never holds more than one large part twice, and the next save packs nothing
    /// again.
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

    std::unique_ptr<const Archive> archive_;  ///< on the heap, so that views into it survive a move
    std::vector<Slot> slots_;
    std::unordered_map<std::string, std::size_t> indexes_;
};

}  // namespace mergeloom::opc
