#include "ui/designer/StructureLoadWork.h"

#include "app/modMain.h"
#include "base/Trap.h"
#include "ui/designer/MainForm.h"
#include "ui/designer/TreeModel.h"
#include "xml/COptions.h"
#include "xml/CXML2TreeView.h"
#include "xml/modNamedItems.h"

#include <algorithm>
#include <utility>

namespace mergeloom {

namespace {

constexpr const char* kProcedure = "mXMLDocument_onreadystatechange";
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

void showInTree(LoadedStructure& structure, ErrorHandler& errors) {
    if (gExcelMode == 0) AddSpecialNodes(structure.tree);
    CXML2TreeView view{structure.tree, structure.document, errors};
    view.DisplayXMLNode(0, structure.document.documentElement(), true);
    structure.xmlNodes = std::move(view.XMLNodes());
    structure.firstObject = firstObject(structure.tree);
    structure.folders = readFolders(errors, structure.document);
}

void readAndShow(const std::string& path, const std::function<bool()>& isCancelled,
                 StructureLoadResult& result, ErrorHandler& errors) {
    auto structure = std::make_shared<LoadedStructure>();
    if (!structure->document.Load(path)) {
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

}  // namespace

StructureLoadResult loadStructure(const std::string& path, const std::function<bool()>& isCancelled) {
    StructureLoadResult result;
    KeptErrors errors;
    trap(errors, kMainForm, kProcedure, [&] { readAndShow(path, isCancelled, result, errors); });
    result.errors = errors.reports();
    return result;
}

}  // namespace mergeloom
