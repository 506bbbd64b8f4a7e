#pragma once

#include "office/opc/ZipRecords.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace mergeloom::opc {

/// What an archive may cost at most. The sizes are declared ones; what inflates to another size than the
/// declared one is refused, so they bound what really comes out.
struct ZipLimits {
    std::uint64_t entryCount = 65536;
    std::uint64_t entrySize = std::uint64_t{512} << 20U;
    /// All entries that are deflated, together. A stored entry yields no more than the file holds.
    std::uint64_t inflatedSize = std::uint64_t{2} << 30U;
    /// An entry above this size may not have been deflated to less than its highest ratio: repetitive XML
    /// shrinks to a few hundredths, a bomb to a thousandth.
    std::uint64_t ratioFreeSize = std::uint64_t{32} << 20U;
    std::uint64_t highestRatio = 400;
};

/// The entries of a zip archive (APPNOTE.TXT 6.3.10). Strict, since a package that two programs could read in
/// two ways must not be edited: headers and directory must agree, entries may not overlap, names may not
/// leave the package, bytes before the first entry are refused. The container code is our own because a start
/// of the program has a few milliseconds, of which loading a general zip library with its cryptography takes
/// a third, and because saving needs the raw bytes of untouched entries where they stand.
class ZipReader {
  public:
    /// The bytes must outlive the reader and the entries that it hands out. The file's name serves messages.
    /// Raises kFileCouldNotBeRead with a sentence that names the file and what is wrong with it.
    ZipReader(std::string_view bytes, std::string fileName, const ZipLimits& limits = {});

    /// In the order in which they stand in the archive.
    [[nodiscard]] const std::vector<ZipEntry>& entries() const { return entries_; }
    [[nodiscard]] std::string_view comment() const { return comment_; }

    /// An entry's content, its size and checksum verified. Raises kFileCouldNotBeRead.
    [[nodiscard]] std::string read(const ZipEntry& entry) const;

  private:
    void readDirectory(std::string_view directory, std::uint64_t count);
    void checkEntry(const ZipEntry& entry) const;
    void checkNamesDiffer() const;
    void locateEntries(std::string_view bytes, std::uint64_t directoryOffset);
    void checkSize(const ZipEntry& entry) const;
    [[noreturn]] void refuse(const std::string& reason) const;

    std::string fileName_;
    ZipLimits limits_;
    std::vector<ZipEntry> entries_;
    std::string_view comment_;
};

}  // namespace mergeloom::opc
