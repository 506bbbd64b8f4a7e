#include "ui/dialogs/ComDlg.h"

#include "base/Paths.h"
#include "base/Text.h"

#include <algorithm>
#include <string_view>

namespace mergeloom {

namespace {

constexpr std::string_view kTwoNuls("\0\0", 2);
constexpr CharacterCount kExtensionLength{3};
constexpr std::uint32_t kSizeForOneFile = 261;
constexpr std::uint32_t kSizeForSeveralFiles = 13001;
constexpr std::uint32_t kSizeOfTitle = 261;

std::string joined(const std::vector<std::string>& parts, char separator) {
    std::string text;
    for (const std::string& part : parts)
        text += (&part == &parts.front() ? "" : std::string(1, separator)) + part;
    return text;
}

std::string firstPart(const std::string& text) {
    return text.substr(0, text.find(kNul));
}

}  // namespace

void ComDlg::SetFilter(const std::string& filter) {
    texts_.lpstrFilter = filter + kNul;
    std::ranges::replace(texts_.lpstrFilter, '|', kNul);
}

void ComDlg::SetFilterParts(const std::vector<std::string>& parts) {
    SetFilter(joined(parts, kNul));
}

std::string ComDlg::Filter() const {
    std::string filter = texts_.lpstrFilter;
    std::ranges::replace(filter, kNul, '|');
    return filter;
}

void ComDlg::SetExtension(const std::string& extension) {
    const std::string letters = replaceAll(extension, ".", "");
    texts_.lpstrDefExt = toLowerAscii(letters.substr(0, byteOffset(letters, kExtensionLength)));
}

bool ComDlg::ShowSave() {
    SetAllowMultiSelect(false);
    SetExistFlags(OFN_PATHMUSTEXIST | OFN_OVERWRITEPROMPT);
    return show(FileDialogKind::Save);
}

void ComDlg::setFlag(std::uint32_t flag, bool on) {
    record_.Flags = on ? record_.Flags | flag : record_.Flags & ~flag;
}

bool ComDlg::show(FileDialogKind kind) {
    prepareRecord();
    if (!dialog_.show(kind, record_, texts_)) return false;
    result_ = resultOfDialog();
    return true;
}

void ComDlg::prepareRecord() {
    const bool severalFiles = (record_.Flags & OFN_ALLOWMULTISELECT) != 0;
    record_.lStructSize = sizeof(OpenFileName);
    record_.hwndOwner = dialog_.activeWindow();
    // The buffer grows with a longer name.
    record_.nMaxFile = std::max(severalFiles ? kSizeForSeveralFiles : kSizeForOneFile,
                                static_cast<std::uint32_t>(initialName_.size() + 1));
    texts_.lpstrFile = initialName_;
    texts_.lpstrFile.resize(record_.nMaxFile - 1, kNul);
    record_.nMaxFileTitle = kSizeOfTitle;
    texts_.lpstrFileTitle.assign(kSizeOfTitle - 1, kNul);
}

ComDlg::Result ComDlg::resultOfDialog() const {
    Result result;
    // When the buffer is full, its own end is the last NUL.
    const std::string buffer = texts_.lpstrFile + std::string(kTwoNuls);
    result.fileName = buffer.substr(0, buffer.find(kTwoNuls));
    result.fileTitle = firstPart(texts_.lpstrFileTitle);
    const std::size_t folderLength = std::max<std::size_t>(record_.nFileOffset, 1) - 1;
    result.directory = result.fileName.substr(0, folderLength);
    if (record_.nFileExtension != 0 && record_.nFileExtension <= result.fileName.size()) {
        result.extension = result.fileName.substr(record_.nFileExtension);
    }
    addChosenFiles(result);
    return result;
}

/// Adds the paths of the chosen files. A root's own separator is not among the characters before a name, so
/// it is added again.
void ComDlg::addChosenFiles(Result& result) {
    if (!result.fileTitle.empty()) {
        result.fileTitles = {result.fileTitle};
        result.fileNames = {result.fileName};
    } else {
        const std::vector<std::string_view> parts = split(result.fileName, kNul);
        result.directory = parts.front();
        result.fileTitles.assign(parts.begin() + 1, parts.end());
        for (const std::string& title : result.fileTitles)
            result.fileNames.push_back(joinPath(result.directory, title));
    }
    if (result.directory.empty()) result.directory = "/";
}

}  // namespace mergeloom
