#pragma once

#include "base/FileStore.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace mergeloom::opc {

/// Returns the bytes of a number, lowest first.
std::string le16(std::uint64_t number);
std::string le32(std::uint64_t number);
std::string le64(std::uint64_t number);

enum class Descriptor { None, Plain, Signed, Plain64, Signed64, Omitted };

/// An entry to build, with options for the entries of other programs and of attackers.
struct BuiltEntry {
    std::string name{};
    std::string content{};
    bool deflated = true;
    int method = -1;  ///< overrides the field in both headers
    std::uint16_t flags = 0;
    Descriptor descriptor = Descriptor::None;
    bool zip64 = false;        ///< sizes and offset in ZIP64 fields
    std::string extra{};       ///< in both headers
    std::string comment{};     ///< in the directory
    std::string localName{};   ///< when it differs from the directory's
    std::int64_t sizeLie = 0;  ///< added to the declared size
    std::uint32_t crcLie = 0;  ///< added to the checksum
    std::int64_t offsetLie = 0;
};

struct BuiltArchive {
    std::string prefix{};
    std::string comment{};
    std::string gapBeforeDirectory{};
    bool zip64 = false;
    int countLie = 0;
    std::uint16_t disk = 0;
};

std::string buildZip(const std::vector<BuiltEntry>& entries, const BuiltArchive& archive = {});

/// Returns the entries of a small document: content types, relationships, main part.
std::vector<BuiltEntry> documentEntries();

/// A sink that keeps the bytes.
class StringSink : public ByteSink {
  public:
    void write(std::span<const char> bytes) override { text.append(bytes.data(), bytes.size()); }

    std::string text;
};

/// Returns the sentence of the AutomationError that a call raises; empty for none.
template <typename Call>
std::string errorOf(Call&& call);

}  // namespace mergeloom::opc

#include "base/AutomationError.h"

template <typename Call>
std::string mergeloom::opc::errorOf(Call&& call) {
    try {
        std::forward<Call>(call)();
    } catch (const AutomationError& error) {
        return error.number() == kFileCouldNotBeRead ? error.description() : "another number";
    }
    return {};
}
