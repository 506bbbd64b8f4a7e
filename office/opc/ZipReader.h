#pragma once

#include "office/opc/ZipRecords.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace mergeloom::opc {

/// The limits of an archive. They are compared with declared sizes; an entry that inflates to another size
/// than declared is refused, so they bound the real sizes, too.
struct ZipLimits {
    std::uint64_t entryCount = 65536;
    std::uint64_t entrySize = std::uint64_t{512} << 20U;
    /// Of all deflated entries together. A stored entry is not larger than the file.
    std::uint64_t inflatedSize = std::uint64_t{2} << 30U;
    /// The size above which maxRatio applies: repetitive XML is deflated to a few hundredths, a zip bomb to a
    /// thousandth.
    std::uint64_t ratioFreeSize = std::uint64_t{32} << 20U;
    std::uint64_t maxRatio = 400;
};

/// The entries of a zip archive (APPNOTE.TXT 6.3.10). Strict, since a package that two programs could read in
/// two ways must not be edited: headers and directory must agree, entries must not overlap, names must not
/// leave the package, and bytes before the first entry are refused. This code does not use a zip library
/// because loading one with its cryptography takes a third of the program's start of a few milliseconds, and
/// because saving copies the raw bytes of unchanged entries.
class ZipReader {
  public:
    /// The bytes must outlive the reader and its entries; the file's name is used in messages. Raises
    /// kFileCouldNotBeRead with a sentence that names the file and its fault.
    ZipReader(std::string_view bytes, std::string fileName, const ZipLimits& limits = {});

    /// Returns the entries in the order of their data in the archive.
    [[nodiscard]] const std::vector<ZipEntry>& entries() const { return entries_; }
    [[nodiscard]] std::string_view comment() const { return comment_; }

    /// Returns an entry's content with verified size and checksum. Raises kFileCouldNotBeRead.
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
