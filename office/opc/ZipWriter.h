#pragma once

#include "base/FileStore.h"
#include "office/opc/ZipRecords.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace mergeloom::opc {

/// Content as it is written to an archive.
struct PackedContent {
    std::uint16_t method = 0;
    std::uint32_t crc = 0;
    std::uint64_t size = 0;  ///< before packing
    std::string data;
};

enum class Packing { Deflate, Store };

/// Returns how an entry is packed: pictures in compressed formats are stored, since deflating them costs time
/// and gains nothing.
Packing packingOf(std::string_view entryName);

/// Deflates the content; stores it if requested or if deflating gains nothing.
PackedContent pack(std::string content, Packing packing);

/// Writes a zip archive (APPNOTE.TXT 6.3.10) from front to end. The same calls produce the same bytes: new
/// entries have the format's first date, 1980-01-01, and no data of the machine.
class ZipWriter {
  public:
    explicit ZipWriter(ByteSink& sink) : sink_(sink) {}

    /// Copies an entry of another archive and its directory record, of which only the offset changes.
    void copy(const ZipEntry& entry);
    /// Raises kFileCouldNotBeSaved for content of 4 GB or more.
    void add(const std::string& name, const PackedContent& content);
    /// Writes the directory, with ZIP64 records only where a number needs them. Must be the last call.
    void finish(std::string_view comment);

  private:
    void write(std::string_view bytes);
    void writeZip64End(std::uint64_t directoryOffset, std::uint64_t directorySize);

    ByteSink& sink_;
    std::string directory_;
    std::uint64_t written_ = 0;
    std::uint64_t count_ = 0;
};

}  // namespace mergeloom::opc
