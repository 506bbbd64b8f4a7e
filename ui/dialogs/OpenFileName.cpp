#include "ui/dialogs/OpenFileName.h"

#include "base/Paths.h"

#include <algorithm>

namespace mergeloom {

namespace {

/// Writes a text into a buffer of the given size with a NUL at its end; NULs fill the rest.
void fillBuffer(std::string& buffer, std::uint32_t& size, const std::string& text) {
    size = std::max(size, static_cast<std::uint32_t>(text.size() + 1));
    buffer = text;
    buffer.resize(size - 1, kNul);
}

}  // namespace

void fillWithFile(OpenFileName& record, OpenFileTexts& texts, const std::string& path) {
    const std::string title = fileNameOnly(path);
    const std::string ending = extension(path);
    fillBuffer(texts.lpstrFile, record.nMaxFile, path);
    fillBuffer(texts.lpstrFileTitle, record.nMaxFileTitle, title);
    record.nFileOffset = static_cast<std::uint16_t>(path.size() - title.size());
    record.nFileExtension = static_cast<std::uint16_t>(ending.empty() ? 0 : path.size() - ending.size());
}

void fillWithFiles(OpenFileName& record, OpenFileTexts& texts, const std::vector<std::string>& paths) {
    const std::string folder = parentFolder(paths.front());
    std::string list = folder + kNul;
    for (const std::string& path : paths)
        list += fileNameOnly(path) + kNul;
    fillBuffer(texts.lpstrFile, record.nMaxFile, list);
    fillBuffer(texts.lpstrFileTitle, record.nMaxFileTitle, {});
    record.nFileOffset = static_cast<std::uint16_t>(folder.size() + 1);
    record.nFileExtension = 0;
}

}  // namespace mergeloom
