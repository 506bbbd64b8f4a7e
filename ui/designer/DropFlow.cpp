#include "ui/designer/DropFlow.h"

#include "app/modMain.h"
#include "base/ErrorHandler.h"
#include "droppers/CNodeDropper.h"
#include "office/model/excel/Application.h"
#include "office/model/excel/Range.h"
#include "office/model/excel/Workbook.h"
#include "office/model/excel/Worksheet.h"
#include "office/model/word/Document.h"
#include "office/model/word/Range.h"
#include "office/model/word/Selection.h"
#include "ui/designer/DocumentErrors.h"
#include "ui/designer/MainForm.h"
#include "ui/designer/TreeModel.h"

#include <variant>

namespace mergeloom {

namespace {

constexpr qint64 kMillisecondsBetween = 50;

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

/// Records if the user chose fields in another dialog.
class WatchedFieldDialog final : public FieldDialog {
  public:
    explicit WatchedFieldDialog(FieldDialog& dialog) : dialog_(dialog) {}

    void Show(FieldSelection& fields) override {
        dialog_.Show(fields);
        isDeclined_ = !fields.isInserted() || fields.SelCount() == 0;
    }
    [[nodiscard]] bool isDeclined() const { return isDeclined_; }

  private:
    FieldDialog& dialog_;
    bool isDeclined_ = false;
};

std::string placeIn(word::Document& document) {
    return document.ActiveWindow()->Selection()->Range()->storyName();
}

std::string placeIn(excel::Workbook& workbook) {
    const excel::RangePtr cell = workbook.Application()->ActiveCell();
    std::string address = cell->AddressLocal();
    std::erase(address, '$');
    return cell->Worksheet()->Name() + "!" + address;
}

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

void DropFlow::refuse(DropRefusal refusal) {
    report_ = {.place = {}, .refusal = refusal};
    ports_.tree.unhook();
}

bool DropFlow::dropSelected(const HostPoint* point) {
    report_ = {};
    const std::shared_ptr<LoadedStructure> structure = ports_.tree.structure();
    const TreeNode* const node = ports_.tree.selectedNode();
    if (node == nullptr || structure == nullptr) return false;
    if (!isDraggable(*node)) {
        report_.refusal = DropRefusal::NotDraggable;
        return false;
    }
    bool dropped = false;
    trap(ports_.errors, kMainForm, "NodeDrop", [&] {
        ports_.jobs.run([&] {
            if (refusesUnderDialog(ports_.access.host(), ports_.messages)) return;
            if (point == nullptr || ports_.access.host().placeCaret(*point)) {
                dropped = dropInto(*node, *structure);
            } else {
                report_.refusal = DropRefusal::NoText;
            }
        });
    });
    return dropped;
}

bool DropFlow::dropInto(const TreeNode& node, const LoadedStructure& structure) {
    if (refusesChanges(ports_.access.host(), ports_.messages)) {
        report_.refusal = DropRefusal::ReadOnly;
        return false;
    }
    const HostEditing editing(ports_.access.host());
    const HostedDocument hosted = ports_.access.host().ActiveDocument();
    DocumentErrors errors(ports_.errors, nameOf(hosted));
    WatchedFieldDialog fieldDialog(ports_.fieldDialog);
    CNodeDropper dropper{errors, ports_.messages,
                         [&](const std::string& image) { return structure.document.findPicture(image); },
                         ports_.progress, &fieldDialog};
    const auto dropAt = [&](const auto& document) {
        // A form ends elsewhere.
        const std::string place = placeIn(*document);
        const bool dropped =
            dropper.NodeDrop(node, document, structure.xmlNodes, true, DocumentType::ByView, nullptr);
        if (!dropped && fieldDialog.isDeclined()) report_.refusal = DropRefusal::NothingChosen;
        if (dropped) report_.place = place;
        return dropped;
    };
    if (const auto* const document = std::get_if<word::DocumentPtr>(&hosted)) return dropAt(*document);
    if (const auto* const workbook = std::get_if<excel::WorkbookPtr>(&hosted)) return dropAt(*workbook);
    return false;
}

}  // namespace mergeloom
