#include "app/Conversion.h"

#include "base/AutomationError.h"
#include "base/Paths.h"
#include "base/SystemFiles.h"
#include "base/SystemPath.h"
#include "base/Text.h"

#include <cerrno>
#include <filesystem>
#include <string>
#include <system_error>

namespace mergeloom {

/// A temporary file of this run for a document between an office and a converter, open to nobody else and
/// removed at the end of its life. It is beside the user's file, so that relative links keep working, or in
/// the system's folder for temporary files when that folder cannot be written.
class ScopedTempFile {
  public:
    /// Makes an empty file. The extension has no dot. Raises kFileCouldNotBeSaved with a sentence that names
    /// the user's file when no folder can be written.
    ScopedTempFile(const std::string& userFile, const std::string& extension);
    ScopedTempFile(const ScopedTempFile&) = delete;
    ScopedTempFile& operator=(const ScopedTempFile&) = delete;
    ~ScopedTempFile();

    [[nodiscard]] const std::string& path() const { return path_; }

  private:
    std::string path_;
};

namespace {

/// Returns the path of a new, empty file; an empty path when the folder cannot be written.
std::string makeFile(const std::string& folder, const std::string& suffix) {
    return folder.empty() ? std::string() : makeUniqueFile(folder, suffix);
}

constexpr const char* temporaryExtension(word::WdSaveFormat) {
    return "docx";
}
constexpr const char* temporaryExtension(excel::XlFileFormat) {
    return "xlsx";
}

/// Runs the body, whose errors name the temporary file, and puts another name in place of that, since users
/// do not know the file.
template <typename Body>
void calling(const ScopedTempFile& temporary, const std::string& name, const Body& body) {
    try {
        body();
    } catch (const AutomationError& error) {
        throw AutomationError(error.number(), replaceAll(error.description(), temporary.path(), name));
    }
}

bool convertRecords(FileConverter& converter, const std::string& from, const std::vector<std::string>& to,
                    word::WdSaveFormat format, const std::function<void()>& written) {
    return converter.convertRecords(from, to, format, written);
}

/// Workbooks are converted one by one.
bool convertRecords(FileConverter&, const std::string&, const std::vector<std::string>&, excel::XlFileFormat,
                    const std::function<void()>&) {
    return false;
}

}  // namespace

ScopedTempFile::ScopedTempFile(const std::string& userFile, const std::string& extension) {
    const std::string suffix = "." + extension;
    path_ = makeFile(parentFolder(fullPath(userFile)), suffix);
    if (path_.empty()) path_ = makeFile(temporaryFolder(), suffix);
    if (!path_.empty()) return;
    throw AutomationError(kFileCouldNotBeSaved, "The file '" + userFile +
                                                    "' could not be converted: there is no place for a "
                                                    "temporary file (" +
                                                    std::generic_category().message(errno) + ").");
}

ScopedTempFile::~ScopedTempFile() {
    std::error_code ignored;
    std::filesystem::remove(systemPath(path_), ignored);
}

template <typename Format>
void Conversion<Format>::read(const std::string& path, const Step& open) {
    const std::string refusal = refusalToRead<Format>(converter_, path);
    if (!refusal.empty()) throw AutomationError(kNotAvailable, refusal);
    const ScopedTempFile temporary(path, temporaryExtension(Format{}));
    // An office that cannot write the temporary format does not make the user's file a damaged one.
    calling(temporary, path + " as " + temporaryExtension(Format{}),
            [&] { converter_.convert(path, temporary.path(), temporaryFormat(Format{})); });
    calling(temporary, path, [&] { open(temporary.path()); });
}

template <typename Format>
void Conversion<Format>::write(const std::string& path, Format format, const Step& save) {
    const ScopedTempFile temporary(path, temporaryExtension(format));
    calling(temporary, path, [&] {
        save(temporary.path());
        converter_.convert(temporary.path(), path, format);
    });
}

template <typename Format>
bool Conversion<Format>::writeRecords(const std::vector<std::string>& paths, Format format, const Step& save,
                                      const std::function<void()>& written) {
    const ScopedTempFile temporary(paths.front(), temporaryExtension(format));
    bool isWritten = false;
    calling(temporary, paths.front(), [&] {
        save(temporary.path());
        isWritten = convertRecords(converter_, temporary.path(), paths, format, written);
    });
    return isWritten;
}

template <typename Format>
std::string refusalToRead(FileConverter& converter, const std::string& path) {
    const std::string refusal = converter.refusal(temporaryFormat(Format{}));
    if (refusal.empty()) return {};
    return "The file '" + path + "' cannot be opened without being converted. " + refusal + " Choose " +
           temporaryExtension(Format{}) + " otherwise.";
}

template class Conversion<word::WdSaveFormat>;
template class Conversion<excel::XlFileFormat>;
template std::string refusalToRead<word::WdSaveFormat>(FileConverter& converter, const std::string& path);
template std::string refusalToRead<excel::XlFileFormat>(FileConverter& converter, const std::string& path);

}  // namespace mergeloom
