#include "xml/StructureDocument.h"

#include "base/AutomationError.h"
#include "base/Paths.h"
#include "base/SystemError.h"
#include "base/SystemFiles.h"
#include "base/SystemPath.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <pugixml.hpp>
#include <system_error>

namespace mergeloom {

namespace {

bool isRegularFile(const std::string& path) {
    std::error_code error;
    return std::filesystem::is_regular_file(systemPath(path), error);
}

constexpr std::size_t kMaxFileSize = std::size_t{1} << 30;
/// The parser itself asks for 4,000 bytes at a time.
constexpr std::size_t kPieceSize = std::size_t{1} << 14;

/// The bytes of a file, read from its start to its end. A folder can be opened, but reading from it fails.
class FileBytes {
  public:
    explicit FileBytes(const std::string& path) : path_(path), file_(openToRead(path)) {
        if (file_ == nullptr) raiseNotRead(path_, errno);
        std::setvbuf(file_, nullptr, _IOFBF, kPieceSize);
    }
    FileBytes(const FileBytes&) = delete;
    FileBytes& operator=(const FileBytes&) = delete;
    ~FileBytes() { std::fclose(file_); }

    std::size_t read(char* buffer, std::size_t size) {
        const std::size_t count = std::fread(buffer, 1, size, file_);
        if (count == 0 && std::ferror(file_) != 0) raiseNotRead(path_, errno);
        total_ += count;
        if (total_ > kMaxFileSize) {
            throw AutomationError(kFileCouldNotBeRead,
                                  "The file '" + path_ + "' could not be read: it is larger than 1 GB.");
        }
        return count;
    }

  private:
    const std::string& path_;
    std::FILE* file_;
    std::size_t total_ = 0;
};

}  // namespace

StructureDocument::StructureDocument() : document_(std::make_unique<pugi::xml_document>()) {}

StructureDocument::~StructureDocument() = default;

bool StructureDocument::Load(const std::string& path) {
    return load(path, nullptr, DataUse::Kept);
}

bool StructureDocument::Load(const std::string& path, const RecordHandler& records, DataUse use) {
    // Errors of the handler are no errors of the document.
    std::exception_ptr unexpected;
    const RecordHandler keepingErrors = [&](Record& record) {
        try {
            records(record);
        } catch (...) {
            unexpected = std::current_exception();
            throw;
        }
    };
    bool loaded = false;
    try {
        loaded = load(path, &keepingErrors, use);
    } catch (...) {
        if (!unexpected) throw;
    }
    if (unexpected) std::rethrow_exception(unexpected);
    return loaded;
}

bool StructureDocument::load(const std::string& path, const RecordHandler* records, DataUse use) {
    folder_ = parentFolder(fullPath(path));
    try {
        FileBytes file(path);
        return read([&](char* buffer, std::size_t size) { return file.read(buffer, size); },
                    "The structure document '" + path + "'", records, use);
    } catch (const AutomationError& error) {
        document_->reset();
        parseError_ = {error.description(), 0};
        return false;
    }
}

bool StructureDocument::loadXML(std::string_view text) {
    folder_.clear();
    const auto takeBytes = [&](char* buffer, std::size_t size) {
        const std::size_t count = text.copy(buffer, size);
        text.remove_prefix(count);
        return count;
    };
    return read(takeBytes, "The structure document");
}

bool StructureDocument::read(const ByteReader& bytes, const std::string& name, const RecordHandler* records,
                             DataUse use) {
    document_->reset();
    parseError_ = records != nullptr ? readStructure(bytes, *document_, *records, use)
                                     : readStructure(bytes, *document_);
    if (parseError_.reason.empty()) return true;
    document_->reset();
    parseError_ = withSentence(parseError_, name);
    return false;
}

XmlNode StructureDocument::documentElement() const {
    return XmlNode(document_->document_element().internal_object());
}

/// A device or a pipe would be read for ever.
std::string StructureDocument::findPicture(const std::string& image) const {
    if (image.empty()) return {};
    const bool relative = !isAbsolutePath(image);
    std::string beside = joinPath(folder_, image);
    if (relative && !folder_.empty() && isRegularFile(beside)) return beside;
    return isRegularFile(image) ? fullPath(image) : std::string();
}

}  // namespace mergeloom
