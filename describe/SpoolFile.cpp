#include "describe/SpoolFile.h"

#include "base/Paths.h"
#include "base/SystemError.h"
#include "base/SystemFiles.h"

#include <array>
#include <cerrno>

namespace mergeloom::describe {

namespace {

constexpr std::size_t kPieceSize = 65536;

}  // namespace

SpoolFile::SpoolFile() : file_(openScratchFile(), std::fclose) {
    if (file_ == nullptr) raiseNotSaved(temporaryFolder(), errno);
}

void SpoolFile::write(std::span<const char> bytes) {
    if (std::fwrite(bytes.data(), 1, bytes.size(), file_.get()) != bytes.size())
        raiseNotSaved(temporaryFolder(), errno);
}

void SpoolFile::copyTo(ByteSink& sink) {
    std::array<char, kPieceSize> piece{};
    if (std::fseek(file_.get(), 0, SEEK_SET) != 0) raiseNotSaved(temporaryFolder(), errno);
    std::size_t size = 0;
    do {
        size = std::fread(piece.data(), 1, piece.size(), file_.get());
        sink.write(std::span<const char>(piece).first(size));
    } while (size == piece.size());
    if (std::ferror(file_.get()) != 0) raiseNotSaved(temporaryFolder(), EIO);
}

}  // namespace mergeloom::describe
