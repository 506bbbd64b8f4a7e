#include "describe/access/LongValue.h"

#include "base/AutomationError.h"

#include <cstdint>

namespace mergeloom::describe::access {

namespace {

constexpr std::size_t kHeadSize = 12;
constexpr std::size_t kPointerOffset = 4;
constexpr std::size_t kPiecePointerSize = 4;
/// Bits of the length that determine the location of the value. If none is set, the value is a chain of
/// pieces.
constexpr std::uint32_t kInTheRow = 0x80000000;
constexpr std::uint32_t kInOnePiece = 0x40000000;
constexpr std::uint32_t kLengthMask = 0x3FFFFFFF;
constexpr std::size_t kMaxSize = std::size_t{64} << 20U;

/// Returns the bytes that a pointer refers to; its lowest byte is the row, the others are the page. The bytes
/// are valid until the next call.
Bytes pieceAt(const AccessFile& file, std::uint32_t pointer) {
    void* page = nullptr;
    int offset = 0;
    size_t size = 0;
    MdbHandle* const mdb = file.handle();
    const auto pageSize = static_cast<std::size_t>(mdb->fmt->pg_size);
    if (mdb_find_pg_row(mdb, static_cast<int>(pointer), &page, &offset, &size) != 0) raiseDamaged();
    const auto start = static_cast<std::size_t>(offset);
    if (offset < 0 || start > pageSize || size > pageSize - start) raiseDamaged();
    return {static_cast<const unsigned char*>(page) + start, size};
}

void append(std::vector<unsigned char>& value, Bytes piece, std::size_t length) {
    const std::size_t size = std::min(piece.size(), length - value.size());
    value.insert(value.end(), piece.begin(), piece.begin() + static_cast<std::ptrdiff_t>(size));
}

}  // namespace

std::vector<unsigned char> longValueOf(const AccessFile& file, Bytes head) {
    if (head.size() < kHeadSize) raiseDamaged();
    const auto flags = static_cast<std::uint32_t>(unsignedOf(head.first(kPointerOffset)));
    auto pointer = static_cast<std::uint32_t>(unsignedOf(head.subspan(kPointerOffset, kPiecePointerSize)));
    const std::size_t length = flags & kLengthMask;
    if (length > file.size()) raiseDamaged();
    if (length > kMaxSize) throw AutomationError(kFileCouldNotBeRead, "a value in it has more than 64 MB.");
    std::vector<unsigned char> value;
    if ((flags & kInTheRow) != 0) {
        append(value, head.subspan(kHeadSize), length);
    } else if ((flags & kInOnePiece) != 0) {
        append(value, pieceAt(file, pointer), length);
    } else {
        while (value.size() < length) {
            const Bytes piece = pieceAt(file, pointer);
            // A chain of empty pieces would not end.
            if (piece.size() <= kPiecePointerSize) raiseDamaged();
            pointer = static_cast<std::uint32_t>(unsignedOf(piece.first(kPiecePointerSize)));
            append(value, piece.subspan(kPiecePointerSize), length);
        }
    }
    if (value.size() != length) raiseDamaged();
    return value;
}

}  // namespace mergeloom::describe::access
