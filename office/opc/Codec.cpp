#include "office/opc/Codec.h"

#include <libdeflate.h>

#include <algorithm>
#include <map>
#include <memory>
#include <new>

namespace mergeloom::opc {

namespace {

// Document XML seldom inflates to more than this ratio, so most streams need one attempt.
constexpr std::size_t kUsualMaxRatio = 32;
constexpr std::size_t kMinAttempt = std::size_t{64} << 10U;
constexpr std::size_t kAttemptGrowth = 8;

struct CompressorDeleter {
    void operator()(libdeflate_compressor* compressor) const { libdeflate_free_compressor(compressor); }
};
struct DecompressorDeleter {
    void operator()(libdeflate_decompressor* decompressor) const {
        libdeflate_free_decompressor(decompressor);
    }
};
using Compressor = std::unique_ptr<libdeflate_compressor, CompressorDeleter>;
using Decompressor = std::unique_ptr<libdeflate_decompressor, DecompressorDeleter>;

template <typename Pointer>
Pointer allocated(Pointer pointer) {
    if (!pointer) throw std::bad_alloc();
    return pointer;
}

struct Attempt {
    libdeflate_result result = LIBDEFLATE_BAD_DATA;
    std::size_t consumed = 0;
    std::size_t produced = 0;
};

Attempt inflateInto(libdeflate_decompressor* decompressor, std::string_view deflated, std::string& output) {
    Attempt attempt;
    attempt.result =
        libdeflate_deflate_decompress_ex(decompressor, deflated.data(), deflated.size(), output.data(),
                                         output.size(), &attempt.consumed, &attempt.produced);
    return attempt;
}

/// Returns the thread's compressor of a level. It is kept, since for a small part making one takes longer
/// than its use.
libdeflate_compressor* compressorOf(DeflateLevel level) {
    thread_local std::map<int, Compressor> compressors;
    Compressor& compressor = compressors[level.value];
    if (!compressor) compressor = allocated(Compressor(libdeflate_alloc_compressor(level.value)));
    return compressor.get();
}

}  // namespace

std::string deflate(std::string_view bytes, DeflateLevel level) {
    libdeflate_compressor* const compressor = compressorOf(level);
    const std::size_t bound = libdeflate_deflate_compress_bound(compressor, bytes.size());
    // A string would initialise, and so occupy, the whole bound.
    const auto buffer = std::make_unique_for_overwrite<char[]>(bound);
    const std::size_t size =
        libdeflate_deflate_compress(compressor, bytes.data(), bytes.size(), buffer.get(), bound);
    return {buffer.get(), size};
}

std::optional<std::string> inflateExactly(std::string_view deflated, std::size_t size) {
    const auto decompressor = allocated(Decompressor(libdeflate_alloc_decompressor()));
    std::string output;
    std::size_t room = std::min(size, std::max(kMinAttempt, deflated.size() * kUsualMaxRatio));
    for (;;) {
        output.resize(room);
        const Attempt attempt = inflateInto(decompressor.get(), deflated, output);
        if (attempt.result == LIBDEFLATE_INSUFFICIENT_SPACE && room < size) {
            room = std::min(size, room * kAttemptGrowth);
            continue;
        }
        const bool whole = attempt.consumed == deflated.size() && attempt.produced == size;
        if (attempt.result != LIBDEFLATE_SUCCESS || !whole) return std::nullopt;
        return output;
    }
}

std::uint32_t crc32(std::string_view bytes) {
    return libdeflate_crc32(0, bytes.data(), bytes.size());
}

}  // namespace mergeloom::opc
