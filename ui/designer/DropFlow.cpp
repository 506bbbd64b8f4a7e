#include "ui/designer/DropFlow.h"

#include "app/modMain.h"
#include "base/ErrorHandler.h"
#include "droppers/CNodeDropper.h"
#include "ui/designer/DocumentErrors.h"
#include "ui/designer/MainForm.h"

#include <variant>

namespace mergeloom {

namespace {

constexpr qint64 kMillisecondsBetween = 50;

constexpr const char* kProcedure = "NodeDrop";

/// Unhooks the tree at the end of its life.
class TreeUnhooking {
  public:
    explicit TreeUnhooking(DropTree& tree) : tree_(tree) {}
    TreeUnhooking(const TreeUnhooking&) = delete;
    TreeUnhooking& operator=(const TreeUnhooking&) = delete;
    ~TreeUnhooking() { tree_.unhook(); }

  private:
    DropTree& tree_;
};

}  // namespace

void DropProgress::advance(std::int64_t done, std::int64_t total) {
    if (total <= 0) return;
    if (sinceShown_.isValid() && sinceShown_.elapsed() < kMillisecondsBetween) return;
    sinceShown_.start();
    Q_EMIT advanced(static_cast<int>(done * 100 / total));
}

bool DropFlow::drop(HostPoint point) {
    const TreeUnhooking unhooking(ports_.tree);
    // A drag that never left the tree did not go into the document.
    if (!ports_.tree.hasLostFocus() && gExcelMode == 0) return false;
    ports_.runPendingEvents();
    return dropSelected(&point);
}

bool DropFlow::insertAtCaret() {
    const TreeUnhooking unhooking(ports_.tree);
    return dropSelected(nullptr);
}

bool DropFlow::dropSelected(const HostPoint* point) {
    const std::shared_ptr<LoadedStructure> structure = ports_.tree.structure();
    const TreeNode* const node = ports_.tree.selectedNode();
    if (node == nullptr || structure == nullptr) return false;
    bool dropped = false;
    trap(ports_.errors, kMainForm, kProcedure, [&] {
        ports_.jobs.run([&] {
            if (point == nullptr || ports_.access.host().placeCaret(*point))
                dropped = dropInto(*node, *structure);
        });
    });
    return dropped;
}

bool DropFlow::dropInto(const TreeNode& node, const LoadedStructure& structure) {
    if (refusesChanges(ports_.access.host(), ports_.messages)) return false;
    const HostEditing editing(ports_.access.host());
    const HostedDocument hosted = ports_.access.host().ActiveDocument();
    DocumentErrors errors(ports_.errors, nameOf(hosted));
    CNodeDropper dropper{errors, ports_.messages,
                         [&](const std::string& image) { return structure.document.findPicture(image); },
                         ports_.progress, &ports_.fieldDialog};
    const auto dropAt = [&](const auto& document) {
        return dropper.NodeDrop(node, document, structure.xmlNodes, true, DocumentType::ByView, nullptr);
    };
    if (const auto* const document = std::get_if<word::DocumentPtr>(&hosted)) return dropAt(*document);
    if (const auto* const workbook = std::get_if<excel::WorkbookPtr>(&hosted)) return dropAt(*workbook);
    return false;
}

}  // namespace mergeloom
