#include "app/Conversion.h"

#include "app/ScopedTempFile.h"
#include "base/AutomationError.h"

namespace mergeloom {

namespace {

constexpr const char* temporaryExtension(word::WdSaveFormat) {
    return "docx";
}
constexpr const char* temporaryExtension(excel::XlFileFormat) {
    return "xlsx";
}

std::string replaced(std::string text, const std::string& what, const std::string& by) {
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + by.size()))
        text.replace(at, what.size(), by);
    return text;
}

/// Runs the body, whose errors name the temporary file, and puts another name in place of that, since users
/// do not know the file.
template <typename Body>
void calling(const ScopedTempFile& temporary, const std::string& name, const Body& body) {
    try {
        body();
    } catch (const AutomationError& error) {
        throw AutomationError(error.number(), replaced(error.description(), temporary.path(), name));
    }
}

}  // namespace

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
