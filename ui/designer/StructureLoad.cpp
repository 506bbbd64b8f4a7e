#include "ui/designer/StructureLoad.h"

#include "app/modMain.h"
#include "base/ErrorHandler.h"
#include "base/Paths.h"
#include "ui/designer/MainForm.h"
#include "ui/designer/TreeModel.h"
#include "ui/dialogs/mComDlg.h"
#include "xml/COptions.h"
#include "xml/CXML2TreeView.h"
#include "xml/modNamedItems.h"

#include <QStandardPaths>
#include <algorithm>
#include <utility>

namespace mergeloom {

namespace {

constexpr const char* kLoadProcedure = "mXMLDocument_onreadystatechange";
constexpr const char* kFirstKey = "1k";
/// The tree control's error for a key without a node.
constexpr ErrorNumber kElementNotFound = 35601;

/// Keeps errors until they can be shown. A document may have one mistake a hundred thousand times; each kind
/// is shown once.
class KeptErrors final : public ErrorHandler {
  public:
    void report(const ErrorReport& report) override {
        const auto alike = std::ranges::find_if(kept_, [&](const Kept& kept) {
            return kept.report.number == report.number && kept.report.module == report.module &&
                   kept.report.procedure == report.procedure;
        });
        if (alike == kept_.end()) {
            kept_.push_back({report});
        } else {
            ++alike->more;
        }
    }

    [[nodiscard]] std::vector<ErrorReport> reports() const {
        std::vector<ErrorReport> reports;
        for (const Kept& kept : kept_) {
            reports.push_back(kept.report);
            if (kept.more > 0) reports.back().comment = std::to_string(kept.more) + " more like this";
        }
        return reports;
    }

  private:
    struct Kept {
        ErrorReport report;
        int more = 0;
    };
    std::vector<Kept> kept_;
};

void AddSpecialNodes(TreeView& tree) {
    TreeNode& special = tree.Add(0, 0, "Special");
    special.SetTag(kNoDragTag);
    for (const DropKind kind : {DropKind::OptionalSpace, DropKind::OptionalCarriageReturn}) {
        const std::string name = DropKindName(kind);
        tree.Add(special.Index(), 0, name).SetTag(name);
    }
}

/// Returns the node of the key "1k", the first one with a key.
int firstObject(TreeView& tree) {
    for (int number = 1; number <= tree.Count(); ++number) {
        if (tree.Item(number)->Key() == kFirstKey) return number;
    }
    throw AutomationError(kElementNotFound, "Element not found");
}

std::optional<StructureFolders> readFolders(ErrorHandler& errors, const StructureDocument& document) {
    COptions options{errors};
    if (!options.initIfThere(document.documentElement())) return std::nullopt;
    return StructureFolders{options.DocumentsFolder(), options.TemplatesFolder()};
}

void findObjects(LoadedStructure& structure) {
    for (const TreeNode* node = structure.tree.First(); node != nullptr; node = node->Next())
        if (isDraggable(*node)) structure.objects.push_back(node);
}

void findPlaces(LoadedStructure& structure) {
    const PlaceScheme scheme = gExcelMode == 0 ? PlaceScheme::Bookmarks : PlaceScheme::RangeNames;
    for (const TreeNode* const object : structure.objects)
        addNodesByPlace(structure.xmlNodes, *object, scheme, structure.nodesByPlace);
}

void showInTree(LoadedStructure& structure, ErrorHandler& errors) {
    if (gExcelMode == 0) AddSpecialNodes(structure.tree);
    CXML2TreeView view{structure.tree, structure.document, errors};
    view.DisplayXMLNode(0, structure.document.documentElement(), true);
    structure.xmlNodes = std::move(view.XMLNodes());
    structure.firstObject = firstObject(structure.tree);
    findObjects(structure);
    findPlaces(structure);
    structure.folders = readFolders(errors, structure.document);
}

void readAndShow(const std::string& path, const std::function<bool()>& isCancelled,
                 StructureLoadResult& result, ErrorHandler& errors) {
    auto structure = std::make_shared<LoadedStructure>();
    structure->path = path;
    const auto keep = [&](Record& record) { structure->records.push_back(std::move(record)); };
    if (!structure->document.Load(path, keep, DataUse::Kept)) {
        result.messages.push_back({structure->document.parseError().reason});
        return;
    }
    if (isCancelled()) return;
    result.structure = structure;
    try {
        showInTree(*structure, errors);
    } catch (const AutomationError& error) {
        if (error.number() != kElementNotFound) throw;
        result.messages.push_back({"XML file is incorrect", MessageIcon::Exclamation});
    }
}

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

FileQuestion question(const std::string& lastFolder) {
    FileQuestion question{};
    question.kind = FileDialogKind::Open;
    question.title = "Load";
    question.directory = lastFolder.empty() ? startFolder() : lastFolder;
    question.filter = "XML Documents (*.xml)|*.xml|All Files (*.*)|*.*";
    return question;
}

}  // namespace

StructureLoadResult loadStructure(const std::string& path, const std::function<bool()>& isCancelled) {
    StructureLoadResult result;
    KeptErrors errors;
    trap(errors, kMainForm, kLoadProcedure, [&] { readAndShow(path, isCancelled, result, errors); });
    result.errors = errors.reports();
    return result;
}

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
        SelectFile(dialog_, question(lastFolder_), path, paths);
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
