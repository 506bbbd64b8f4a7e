#include "ui/dialogs/QtFileDialog.h"

#include "base/Paths.h"
#include "ui/dialogs/DialogOwner.h"
#include "ui/dialogs/FileFilters.h"
#include "ui/dialogs/OpenFileName.h"
#include "ui/services/GuiThread.h"

#include <QApplication>
#include <QCheckBox>
#include <QCoreApplication>
#include <QFileDialog>
#include <QGridLayout>
#include <QMessageBox>
#include <QScreen>
#include <algorithm>
#include <string>
#include <vector>

namespace mergeloom {

namespace {

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

constexpr double kShareOfScreen = 0.95;

QString textOf(const std::string& buffer) {
    return QString::fromStdString(buffer.substr(0, buffer.find('\0')));
}

/// Returns the entry as the toolkit reads it: with the patterns in brackets at its end, separated by blanks.
QString shownFilter(const FileFilter& filter) {
    QStringList patterns;
    for (const std::string& pattern : filter.patterns)
        patterns += QString::fromStdString(pattern);
    return QStringLiteral("%1 (%2)").arg(QString::fromStdString(filter.description),
                                         patterns.join(QChar(u' ')));
}

QFileDialog::FileMode fileModeOf(FileDialogKind kind, std::uint32_t flags) {
    if (kind == FileDialogKind::Save) return QFileDialog::AnyFile;
    if ((flags & OFN_ALLOWMULTISELECT) != 0) return QFileDialog::ExistingFiles;
    return (flags & OFN_FILEMUSTEXIST) != 0 ? QFileDialog::ExistingFile : QFileDialog::AnyFile;
}

FileDialogRun::FileDialogRun(QWidget* owner, FileDialogKind kind, OpenFileName& record, OpenFileTexts& texts)
    : kind_(kind),
      record_(record),
      texts_(texts),
      filters_(parseFileFilters(texts.lpstrFilter)),
      dialog_(owner) {
    setUpFiles();
    setUpFilters();
    setUpStart();
    if (!has(OFN_HIDEREADONLY)) setUpCheckBox();
    // The toolkit's own dialog is larger than a small screen with large writing.
    dialog_.resize(dialog_.size().boundedTo(dialog_.screen()->availableSize() * kShareOfScreen));
}

bool FileDialogRun::show() {
    while (dialog_.exec() == QDialog::Accepted) {
        const std::vector<std::string> paths = chosenPaths();
        if (!accepts(paths)) continue;
        if (paths.size() == 1) {
            fillWithFile(record_, texts_, paths.front());
        } else {
            fillWithFiles(record_, texts_, paths);
        }
        record_.nFilterIndex = static_cast<std::uint32_t>(filters_.empty() ? 0 : filterIndex() + 1);
        return true;
    }
    return false;
}

void FileDialogRun::setUpFiles() {
    const bool saves = kind_ == FileDialogKind::Save;
    dialog_.setAcceptMode(saves ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog_.setFileMode(fileModeOf(kind_, record_.Flags));
    // The user is asked when the name is complete, with its extension.
    dialog_.setOption(QFileDialog::DontConfirmOverwrite);
    if (!texts_.lpstrTitle.empty()) dialog_.setWindowTitle(textOf(texts_.lpstrTitle));
}

/// Sets up the filters; the patterns are shown when the descriptions include them.
void FileDialogRun::setUpFilters() {
    dialog_.setOption(QFileDialog::HideNameFilterDetails,
                      std::ranges::none_of(filters_, &FileFilter::showsPatterns));
    QStringList shown;
    for (const FileFilter& filter : filters_)
        shown += shownFilter(filter);
    if (shown.isEmpty()) return;
    dialog_.setNameFilters(shown);
    const auto last = static_cast<std::uint32_t>(shown.size());
    dialog_.selectNameFilter(shown.at(std::clamp(record_.nFilterIndex, 1U, last) - 1));
}

void FileDialogRun::setUpStart() {
    if (!texts_.lpstrInitialDir.empty()) dialog_.setDirectory(textOf(texts_.lpstrInitialDir));
    const QString fileName = textOf(texts_.lpstrFile);
    if (!fileName.isEmpty()) dialog_.selectFile(fileName);
    // A name for saving gets its extension when it is chosen.
    if (kind_ == FileDialogKind::Save) return;
    takeExtensionOfFilter();
    QObject::connect(&dialog_, &QFileDialog::filterSelected, &dialog_, [this] { takeExtensionOfFilter(); });
}

/// Sets up the check box, for which only the toolkit's own dialog has room.
void FileDialogRun::setUpCheckBox() {
    dialog_.setOption(QFileDialog::DontUseNativeDialog);
    auto* layout = qobject_cast<QGridLayout*>(dialog_.layout());
    if (layout == nullptr) return;
    auto* box = new QCheckBox(tr("Open as &read-only"), &dialog_);
    box->setChecked(has(OFN_READONLY));
    QObject::connect(box, &QCheckBox::toggled, &dialog_, [this](bool on) {
        record_.Flags = on ? record_.Flags | OFN_READONLY : record_.Flags & ~OFN_READONLY;
    });
    layout->addWidget(box, layout->rowCount(), 0, 1, layout->columnCount());
}

/// Takes the extension of the filter; the dialog looks for a file with it when there is none without.
void FileDialogRun::takeExtensionOfFilter() {
    dialog_.setDefaultSuffix(QString::fromStdString(defaultExtension()));
}

/// Returns the index of the chosen entry. When patterns are hidden, the toolkit names the entry without them.
std::size_t FileDialogRun::filterIndex() const {
    const QString chosen = dialog_.selectedNameFilter();
    const auto isChosen = [&](const FileFilter& filter) {
        return shownFilter(filter) == chosen ||
               QString::fromStdString(filter.description).simplified() == chosen.simplified();
    };
    const auto found = std::ranges::find_if(filters_, isChosen);
    return found == filters_.end() ? 0 : static_cast<std::size_t>(found - filters_.begin());
}

FileFilter FileDialogRun::filter() const {
    return filters_.empty() ? FileFilter() : filters_.at(filterIndex());
}

/// Returns the extension for names without one. Three characters cannot distinguish "docx" from "doc", so the
/// entry that the user chose decides when it can. Without a default extension, names stay as they are.
std::string FileDialogRun::defaultExtension() const {
    if (texts_.lpstrDefExt.empty()) return {};
    const std::string ofFilter = extensionOf(filter());
    return ofFilter.empty() ? texts_.lpstrDefExt : ofFilter;
}

std::vector<std::string> FileDialogRun::chosenPaths() const {
    std::vector<std::string> paths;
    for (const QString& path : dialog_.selectedFiles())
        paths.push_back(path.toStdString());
    const bool completes = kind_ == FileDialogKind::Save && paths.size() == 1 && !defaultExtension().empty();
    if (completes && !hasExtension(paths.front(), filter())) paths.front() += "." + defaultExtension();
    return paths;
}

bool FileDialogRun::accepts(const std::vector<std::string>& paths) {
    if (paths.empty()) return false;
    const std::string folder = parentFolder(paths.front());
    const auto liesElsewhere = [&](const std::string& path) { return parentFolder(path) != folder; };
    if (std::ranges::any_of(paths, liesElsewhere)) {
        refuse(tr("Please choose files of one folder."));
        return false;
    }
    if (has(OFN_PATHMUSTEXIST) && !folderExists(folder)) {
        refuse(tr("The folder '%1' does not exist.").arg(QString::fromStdString(folder)));
        return false;
    }
    const bool asks = kind_ == FileDialogKind::Save && has(OFN_OVERWRITEPROMPT);
    return !asks || !fileExists(paths.front()) || mayReplace(paths.front());
}

bool FileDialogRun::mayReplace(const std::string& path) {
    QMessageBox box(
        QMessageBox::Warning, dialog_.windowTitle(),
        tr("The file '%1' already exists.\nDo you want to replace it?").arg(QString::fromStdString(path)),
        QMessageBox::Yes | QMessageBox::No, dialog_.parentWidget());
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(QMessageBox::No);
    box.setEscapeButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}

void FileDialogRun::refuse(const QString& reason) {
    QMessageBox box(QMessageBox::Warning, dialog_.windowTitle(), reason, QMessageBox::Ok,
                    dialog_.parentWidget());
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

}  // namespace

std::uint32_t QtFileDialog::activeWindow() {
    std::uint32_t window = 0;
    callOnGuiThread([&] {
        const QWidget* active = QApplication::activeWindow();
        if (active != nullptr) window = static_cast<std::uint32_t>(active->winId());
    });
    return window;
}

bool QtFileDialog::show(FileDialogKind kind, OpenFileName& record, OpenFileTexts& texts) {
    bool chosen = false;
    callOnGuiThread([&] {
        QWidget* active = record.hwndOwner != 0 ? QWidget::find(record.hwndOwner) : nullptr;
        QWidget* owner = active != nullptr ? active : ownerOfDialog(owner_);
        chosen = FileDialogRun(owner, kind, record, texts).show();
    });
    return chosen;
}

}  // namespace mergeloom
