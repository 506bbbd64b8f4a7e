#include "ui/designer/DatabaseFlow.h"

#include "base/DatabaseFile.h"
#include "base/Paths.h"
#include "ui/designer/DatabaseWindow.h"
#include "ui/designer/DesignerActions.h"
#include "ui/designer/StructureLoad.h"
#include "ui/designer/TreePane.h"
#include "ui/dialogs/mComDlg.h"
#include "ui/help/clsHtmlHelpForForm.h"
#include "ui/services/StateFolder.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <algorithm>
#include <string_view>
#include <vector>

namespace mergeloom {

namespace {

constexpr int kDigitsOfHash = 8;
/// The maximum number of sentences about omissions in one message.
constexpr qsizetype kMaxRemarks = 12;

std::string filter() {
    std::string patterns;
    for (const std::string_view extension : kDatabaseExtensions)
        patterns.append(patterns.empty() ? "*." : ";*.").append(extension);
    return "Databases (" + patterns + ")|" + patterns + "|All Files (*.*)|*.*";
}

/// Returns the path of the structure document of a database: named after it, in a folder that only the user
/// can read.
QString documentFor(const QString& source) {
    const std::string folder = joinPath(stateFolder(), "databases");
    if (!makePrivateFolder(folder)) return {};
    const bool isFile = QFileInfo::exists(source);
    const QString whole = isFile ? QFileInfo(source).absoluteFilePath() : source;
    const QString name = isFile ? QFileInfo(source).completeBaseName() : QStringLiteral("database");
    const QByteArray hash = QCryptographicHash::hash(whole.toUtf8(), QCryptographicHash::Sha1).toHex();
    const QString file =
        name + QLatin1Char('-') + QString::fromLatin1(hash.first(kDigitsOfHash)) + QStringLiteral(".xml");
    return QString::fromStdString(joinPath(folder, file.toStdString()));
}

std::string textOf(const QStringList& remarks) {
    QStringList shown = remarks.first(std::min(remarks.size(), kMaxRemarks));
    if (remarks.size() > shown.size())
        shown << DatabaseFlow::tr("%1 more like these").arg(remarks.size() - shown.size());
    return shown.join(QLatin1Char('\n')).toStdString();
}

}  // namespace

DatabaseFlow::DatabaseFlow(const Parts& parts) : QObject(&parts.window), parts_(parts) {
    connect(&parts.tree, &TreePane::databaseRequested, this, [this] { open({}); });
    connect(&parts.actions, &DesignerActions::openDatabase, this, [this] { open({}); });
    connect(&parts.actions, &DesignerActions::readDatabaseAgain, this, &DatabaseFlow::readAgain);
    connect(&parts.structures, &StructureLoad::loaded, this,
            [this](const std::shared_ptr<LoadedStructure>& structure) {
                const std::string document = last_.document.toStdString();
                parts_.actions.setDatabaseAvailable(!document.empty() && structure->path == document);
            });
}

void DatabaseFlow::openFile(const std::string& path) {
    if (!isDatabaseFile(path)) return parts_.structures.load(path);
    QMetaObject::invokeMethod(
        this, [this, path] { open(path); }, Qt::QueuedConnection);
}

std::string DatabaseFlow::askFile() const {
    FileQuestion question{};
    question.kind = FileDialogKind::Open;
    question.title = "Open Database";
    question.filter = filter();
    if (QFileInfo::exists(last_.source.name))
        question.directory = parentFolder(last_.source.name.toStdString());
    std::string path;
    std::vector<std::string> paths;
    SelectFile(parts_.dialog, question, path, paths);
    return path;
}

void DatabaseFlow::open(const std::string& path) {
    DatabaseWindow window(&parts_.window, {[this] { return askFile(); }, documentFor}, describeProgram());
    if (!path.empty()) window.open(QString::fromStdString(path));
    show(window);
}

void DatabaseFlow::readAgain() {
    if (last_.document.isEmpty()) return;
    DatabaseWindow window(&parts_.window, {[this] { return askFile(); }, documentFor}, describeProgram());
    window.repeat(last_);
    show(window);
}

/// Shows the window and loads the structure document that it makes.
void DatabaseFlow::show(DatabaseWindow& window) {
    setHelpTopic(window, "open-database.html");
    if (window.exec() != QDialog::Accepted) return;
    last_ = window.request();
    parts_.structures.load(last_.document.toStdString());
    if (!window.remarks().isEmpty())
        parts_.messages.show({textOf(window.remarks()), MessageIcon::Information});
}

}  // namespace mergeloom
