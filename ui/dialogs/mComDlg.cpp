#include "ui/dialogs/mComDlg.h"

#include "ui/dialogs/ComDlg.h"

namespace mergeloom {

bool SelectFile(FileDialog& dialog, const FileQuestion& question, std::string& rstrFileName,
                std::vector<std::string>& rcolFileNames) {
    ComDlg comDlg(dialog);
    comDlg.SetDialogTitle(question.title);
    comDlg.SetExtension(question.extension);
    comDlg.SetDirectory(question.directory);
    comDlg.SetFilter(question.filter);
    comDlg.SetFileName(question.fileName);
    comDlg.SetFilterIndex(question.filterIndex);
    comDlg.SetAllowMultiSelect(question.allowMultiSelect);
    const bool saves = question.kind == FileDialogKind::Save;
    if (!(saves ? comDlg.ShowSave() : comDlg.ShowOpen())) return false;
    rstrFileName = comDlg.FileName();
    if (question.allowMultiSelect) rcolFileNames = comDlg.FileNames();
    return true;
}

std::string AddFilter(const std::string& filter, const std::string& description, const std::string& pattern,
                      PatternInDescription shown) {
    const bool needsSeparator = !filter.empty() && !filter.ends_with('|');
    const std::string shownPattern = shown == PatternInDescription::Shown ? " (" + pattern + ")" : "";
    return filter + (needsSeparator ? "|" : "") + description + shownPattern + "|" + pattern;
}

}  // namespace mergeloom
