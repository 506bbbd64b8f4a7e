#pragma once

#include "ui/dialogs/FileDialog.h"
#include "ui/dialogs/FileFilters.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <string>
#include <vector>

namespace mergeloom {

/// Asks one question for files on the windows' thread: shows the toolkit's dialog until its result satisfies
/// the flags.
class FileDialogRun {
    Q_DECLARE_TR_FUNCTIONS(FileDialogRun)

  public:
    FileDialogRun(QWidget* owner, FileDialogKind kind, OpenFileName& record, OpenFileTexts& texts);

    /// Returns true when files were chosen; then the record and its texts have them.
    bool show();

  private:
    void setUpFiles();
    void setUpFilters();
    void setUpStart();
    void setUpCheckBox();
    void takeExtensionOfFilter();
    [[nodiscard]] bool has(std::uint32_t flag) const { return (record_.Flags & flag) != 0; }
    [[nodiscard]] std::size_t filterIndex() const;
    [[nodiscard]] FileFilter filter() const;
    [[nodiscard]] std::string defaultExtension() const;
    [[nodiscard]] std::vector<std::string> chosenPaths() const;
    bool accepts(const std::vector<std::string>& paths);
    bool mayReplace(const std::string& path);
    void refuse(const QString& reason);

    FileDialogKind kind_;
    OpenFileName& record_;
    OpenFileTexts& texts_;
    std::vector<FileFilter> filters_;
    QFileDialog dialog_;
};

}  // namespace mergeloom
