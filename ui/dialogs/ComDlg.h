#pragma once

#include "ui/dialogs/FileDialog.h"

#include <cstdint>
#include <string>
#include <vector>

namespace mergeloom {

/// A file dialog with properties, which are set before it is shown and return the result after that, except
/// for the filter and the flags.
class ComDlg {
  public:
    explicit ComDlg(FileDialog& dialog) : dialog_(dialog) {}

    void SetAllowMultiSelect(bool allowed) { setFlag(OFN_ALLOWMULTISELECT, allowed); }
    void SetDialogTitle(const std::string& title) { texts_.lpstrTitle = title; }
    /// Sets the filter: "description|pattern|…". The filter that is returned ends in "|".
    void SetFilter(const std::string& filter);
    void SetFilterParts(const std::vector<std::string>& parts);
    [[nodiscard]] std::string Filter() const;
    /// Sets the filter's entry, counted from 1. After the dialog it is the entry that the user chose.
    void SetFilterIndex(int index) { record_.nFilterIndex = static_cast<std::uint32_t>(index); }
    [[nodiscard]] int FilterIndex() const { return static_cast<int>(record_.nFilterIndex); }
    void SetRestoreCurDir(bool restored) { setFlag(OFN_NOCHANGEDIR, restored); }
    /// Adds flags; no flag is removed.
    void SetExistFlags(std::uint32_t flags) { record_.Flags |= flags; }
    void SetCheckBoxVisible(bool visible) { setFlag(OFN_HIDEREADONLY, !visible); }
    void SetCheckBoxSelected(bool selected) { setFlag(OFN_READONLY, selected); }
    [[nodiscard]] bool CheckBoxSelected() const { return (record_.Flags & OFN_READONLY) != 0; }
    void SetFileName(const std::string& name) { initialName_ = name; }
    void SetDirectory(const std::string& folder) { texts_.lpstrInitialDir = folder; }
    /// Sets the extension for names without one; its first three characters count.
    void SetExtension(const std::string& extension);

    /// Returns true when a file was chosen. Otherwise the results stay as they were.
    bool ShowOpen() { return show(FileDialogKind::Open); }
    /// Asks for one file in an existing folder, and before one is overwritten.
    bool ShowSave();

    /// Returns the path; of several files, the folder and the names with a NUL between them.
    [[nodiscard]] const std::string& FileName() const { return result_.fileName; }
    /// Returns the name without its folder; empty for several files.
    [[nodiscard]] const std::string& FileTitle() const { return result_.fileTitle; }
    [[nodiscard]] const std::string& Directory() const { return result_.directory; }
    /// Returns the extension without its "."; empty for several files.
    [[nodiscard]] const std::string& Extension() const { return result_.extension; }
    /// Returns the paths of all files that were chosen, also of a single one.
    [[nodiscard]] const std::vector<std::string>& FileNames() const { return result_.fileNames; }
    [[nodiscard]] const std::vector<std::string>& FileTitles() const { return result_.fileTitles; }
    [[nodiscard]] const OpenFileName& Record() const { return record_; }

  private:
    struct Result {
        std::string fileName, fileTitle, directory, extension;
        std::vector<std::string> fileNames, fileTitles;
    };

    void setFlag(std::uint32_t flag, bool on);
    bool show(FileDialogKind kind);
    void prepareRecord();
    [[nodiscard]] Result resultOfDialog() const;
    static void addChosenFiles(Result& result);

    FileDialog& dialog_;
    OpenFileName record_{.Flags = OFN_EXPLORER | OFN_LONGNAMES | OFN_HIDEREADONLY};
    OpenFileTexts texts_;
    std::string initialName_;
    Result result_;
};

}  // namespace mergeloom
