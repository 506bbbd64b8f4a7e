#include "describe/PictureFolder.h"

#include "base/AutomationError.h"
#include "base/Paths.h"
#include "base/SystemError.h"
#include "base/SystemPath.h"
#include "office/opc/PictureFile.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <system_error>

namespace mergeloom::describe {

namespace {

constexpr std::uint64_t kFnvOffset = 0xCBF29CE484222325;
constexpr std::uint64_t kFnvPrime = 0x100000001B3;
constexpr int kHexadecimal = 16;

/// Returns the file extension of a picture; none for other bytes.
std::optional<std::string> pictureExtension(std::string_view bytes) {
    try {
        return opc::PictureFile::read(bytes, {}).extension();
    } catch (const AutomationError&) {
        return std::nullopt;
    }
}

/// Returns a number that other contents hardly ever share (FNV-1a, 64 bits), in hexadecimal digits.
std::string digest(std::string_view bytes) {
    std::uint64_t hash = kFnvOffset;
    for (const char byte : bytes)
        hash = (hash ^ static_cast<unsigned char>(byte)) * kFnvPrime;
    std::array<char, 16> digits{};
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), hash, kHexadecimal);
    return {digits.data(), end};
}

/// Returns the text with a "_" for each character that is special in paths.
std::string inFileName(std::string text) {
    for (char& character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte < ' ' || character == '/' || character == '\\') character = '_';
    }
    return text;
}

}  // namespace

bool isPicture(std::string_view bytes) {
    return pictureExtension(bytes).has_value();
}

PictureFolder::PictureFolder(FileStore& files, const std::string& document)
    : files_(files), parent_(parentFolder(document)) {
    const std::string name = fileNameOnly(document);
    folder_ = name.substr(0, name.rfind('.')) + "-pictures";
}

PictureFolder::~PictureFolder() {
    std::error_code ignored;
    for (const std::string& path : added_)
        std::filesystem::remove(systemPath(path), ignored);
    if (isMade_) std::filesystem::remove(systemPath(joinPath(parent_, folder_)), ignored);
}

std::string PictureFolder::add(const std::string& column, std::string_view bytes) {
    const std::optional<std::string> extension = pictureExtension(bytes);
    if (!extension) return {};
    makeFolder();
    // The name is written into the document, which is the same on every system.
    const std::string base = folder_ + "/" + inFileName(column) + "-" + digest(bytes);
    for (int number = 1;; ++number) {
        const std::string end = number == 1 ? "." : "-" + std::to_string(number) + ".";
        std::string name = base + end + *extension;
        const std::string path = joinPath(parent_, name);
        if (!files_.fileExists(path)) {
            files_.saveInBatch(path, [&](ByteSink& sink) { sink.write(bytes); });
            added_.push_back(path);
            return name;
        }
        if (files_.read(path) == bytes) return name;
    }
}

void PictureFolder::makeFolder() {
    std::error_code error;
    const std::string path = joinPath(parent_, folder_);
    const bool isNew = std::filesystem::create_directory(systemPath(path), error);
    if (error) raiseNotSaved(path, error.value());
    isMade_ = isMade_ || isNew;
}

void PictureFolder::keep() {
    files_.finishBatch();
    added_.clear();
    isMade_ = false;
}

}  // namespace mergeloom::describe
