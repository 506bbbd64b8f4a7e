#include "ui/designer/StructureLoad.h"

#include "base/Paths.h"
#include "base/Trap.h"
#include "ui/designer/MainForm.h"
#include "ui/designer/StructureLoadWork.h"
#include "ui/dialogs/mComDlg.h"

#include <QStandardPaths>
#include <utility>
#include <vector>

namespace mergeloom {

namespace {

std::string usersDocuments() {
    return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation).toStdString();
}

/// Returns the folder in which documents are searched: beside the program, else among the user's own.
std::string startFolder() {
    std::string beside = joinPath(parentFolder(programPath()), "XML");
    if (folderExists(beside)) return beside;
    return usersDocuments();
}

StructureFolders usersFolders() {
    return {usersDocuments(), usersDocuments()};
}

FileQuestion question() {
    FileQuestion question{};
    question.kind = FileDialogKind::Open;
    question.title = "Load";
    question.directory = startFolder();
    question.filter = "XML Documents (*.xml)|*.xml|All Files (*.*)|*.*";
    return question;
}

}  // namespace

StructureLoad::StructureLoad(FileDialog& dialog, Messages& messages, ErrorHandler& errors, QObject* parent)
    : QObject(parent), dialog_(dialog), messages_(messages), errors_(errors) {}

StructureLoad::~StructureLoad() = default;

void StructureLoad::cmdLoadXML_Click() {
    askAndLoad(Origin::Button);
}

void StructureLoad::LoadXMLFile() {
    askAndLoad(Origin::Elsewhere);
}

void StructureLoad::load(const std::string& path) {
    begin(path, Origin::Elsewhere);
}

void StructureLoad::askAndLoad(Origin origin) {
    std::string path;
    trap(errors_, kMainForm, "LoadXMLFile", [&] {
        std::vector<std::string> paths;
        SelectFile(dialog_, question(), path, paths);
    });
    if (!path.empty()) {
        begin(path, origin);
    } else if (origin == Origin::Button) {
        loadedByButton_ = true;
    }
}

void StructureLoad::begin(const std::string& path, Origin origin) {
    cancel();
    current_ = ++last_;
    origin_ = origin;
    Q_EMIT started();
    threads_[current_] = std::jthread([this, path, number = current_](const std::stop_token& stop) {
        auto result =
            std::make_shared<StructureLoadResult>(loadStructure(path, [&] { return stop.stop_requested(); }));
        // Destroying a large tree takes a while, so it is done here.
        if (stop.stop_requested()) *result = {};
        QMetaObject::invokeMethod(
            this, [this, number, result] { finish(number, *result); }, Qt::QueuedConnection);
    });
}

void StructureLoad::cancel() {
    if (!isLoading()) return;
    threads_[current_].request_stop();
    current_ = 0;
    Q_EMIT ended();
}

void StructureLoad::finish(LoadNumber number, const StructureLoadResult& result) {
    threads_.erase(number);
    if (number != current_) return;
    current_ = 0;
    if (result.structure) {
        takeFolders(result.structure->folders.value_or(usersFolders()));
        Q_EMIT loaded(result.structure);
    }
    if (origin_ == Origin::Button) loadedByButton_ = true;
    Q_EMIT ended();
    showMessages(result);
}

void StructureLoad::takeFolders(const StructureFolders& folders) {
    documentsFolder_ = folders.documents;
    if (templatesFolder_.empty() || loadedByButton_) templatesFolder_ = folders.templates;
}

void StructureLoad::showMessages(const StructureLoadResult& result) {
    for (const Message& message : result.messages)
        messages_.show(message);
    for (const ErrorReport& report : result.errors)
        errors_.report(report);
}

}  // namespace mergeloom
