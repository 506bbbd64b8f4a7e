#include "app/Conversion.h"

#include "app/PassingFile.h"
#include "base/AutomationError.h"

namespace mergeloom {

namespace {

constexpr const char* passingExtension(word::WdSaveFormat) {
    return "docx";
}
constexpr const char* passingExtension(excel::XlFileFormat) {
    return "xlsx";
}

std::string replaced(std::string text, const std::string& what, const std::string& by) {
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + by.size()))
        text.replace(at, what.size(), by);
    return text;
}

/// Errors of the body that name the passing file call it by another name, since users know none of it.
template <typename Body>
void calling(const PassingFile& passing, const std::string& name, const Body& body) {
    try {
        body();
    } catch (const AutomationError& error) {
        throw AutomationError(error.number(), replaced(error.description(), passing.path(), name));
    }
}

}  // namespace

template <typename Format>
void Conversion<Format>::read(const std::string& path, const Step& open) {
    const std::string refusal = refusalToRead<Format>(converter_, path);
    if (!refusal.empty()) throw AutomationError(kNotAvailable, refusal);
    const PassingFile passing(path, passingExtension(Format{}));
    // What cannot be kept in it is no fault of the user's file.
    calling(passing, path + " as " + passingExtension(Format{}),
            [&] { converter_.convert(path, passing.path(), passingFormat(Format{})); });
    calling(passing, path, [&] { open(passing.path()); });
}

template <typename Format>
void Conversion<Format>::write(const std::string& path, Format format, const Step& save) {
    const PassingFile passing(path, passingExtension(format));
    calling(passing, path, [&] {
        save(passing.path());
        converter_.convert(passing.path(), path, format);
    });
}

template <typename Format>
std::string refusalToRead(FileConverter& converter, const std::string& path) {
    const std::string refusal = converter.refusal(passingFormat(Format{}));
    if (refusal.empty()) return {};
    return "The file '" + path + "' cannot be opened without being converted. " + refusal + " Choose " +
           passingExtension(Format{}) + " otherwise.";
}

template class Conversion<word::WdSaveFormat>;
template class Conversion<excel::XlFileFormat>;
template std::string refusalToRead<word::WdSaveFormat>(FileConverter& converter, const std::string& path);
template std::string refusalToRead<excel::XlFileFormat>(FileConverter& converter, const std::string& path);

}  // namespace mergeloom
