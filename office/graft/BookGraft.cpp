#include "office/graft/BookGraft.h"

#include "base/AutomationError.h"
#include "office/embedded/parts/DocumentFile.h"
#include "office/graft/BookPictures.h"
#include "office/graft/BookReplay.h"
#include "office/graft/BookRules.h"
#include "office/graft/MovedObjects.h"
#include "office/graft/OriginalFormat.h"
#include "office/graft/Refusal.h"
#include "office/graft/SheetList.h"
#include "office/graft/ShiftedBook.h"
#include "office/graft/WordExport.h"

#include <algorithm>
#include <cmath>
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace mergeloom::graft {

namespace {

/// The difference between the heights of a line in the original's program and in the office, in points.
constexpr double kMeasuredHeight = 3;

/// The number of places at which rows and columns may be inserted or removed between two saves.
constexpr int kMaxShifts = 10;

/// The changes of a sheet.
struct SheetChange {
    const ExportedSheet* former = nullptr;
    const ExportedSheet* now = nullptr;
    SheetDifference difference;
    bool isAdded = false;

    [[nodiscard]] bool isRenamed() const { return !isAdded && former->name() != now->name(); }
    [[nodiscard]] bool hasNewObjects() const { return now->objects.size() > former->objects.size(); }
    [[nodiscard]] bool isNothing() const {
        return !isAdded && !isRenamed() && !hasNewObjects() && difference.isEmpty();
    }
};

/// Repeats the changes of one workbook on its original.
class WorkbookGraft {
  public:
    /// Rows and columns that were inserted or removed are repeated one after the other, up to a number of
    /// times.
    WorkbookGraft(const model::EditedPackage& package, int shifts)
        : package_(package),
          shifts_(shifts),
          former_(package.baseline, package.fileName, numbers_),
          now_(package.edited, package.fileName, numbers_) {}

    model::GraftResult make() {
        const std::vector<SheetPair> pairs = pairSheets(former_, now_);
        for (const SheetPair& pair : pairs)
            if (const auto shift = shiftOf(pair)) return repeat(pair.former->name(), *shift);
        if (const auto section = differentSection(former_.sections(), now_.sections()))
            throw Refusal(reasonForSection(*section));
        for (const SheetPair& pair : pairs)
            compare(pair);
        const bool isUnchanged =
            std::ranges::all_of(changes_, &SheetChange::isNothing) && former_.names() == now_.names();
        // The results of formulas are other ones after cells have moved.
        const bool hasMoved = shifts_ < kMaxShifts;
        if (isUnchanged && !hasMoved) return unchanged(package_, DocumentFamily::Excel);
        return repeat();
    }

  private:
    [[nodiscard]] std::optional<LineShift> shiftOf(const SheetPair& pair) const {
        if (pair.former == nullptr || shifts_ == 0) return {};
        const bool isSame = differenceBetween(former_, *pair.former, now_, *pair.now).isEmpty();
        return isSame ? std::nullopt : findShift(*pair.former, *pair.now);
    }
    /// Moves the cells of the original and of its export in the same way, and repeats the other changes on
    /// the result. A difference between this movement and the office's own shows in the comparison.
    [[nodiscard]] model::GraftResult repeat(const std::string& sheet, const LineShift& shift) const {
        const auto shifted = [&](const std::string& bytes) {
            opc::Package package = opc::Package::read(bytes, package_.fileName);
            shiftLines(package, sheet, shift);
            return embedded::savedBytes(package, DocumentFamily::Excel, package_.format, package_.fileName);
        };
        const std::string original = shifted(package_.original);
        const std::string baseline = shifted(package_.baseline);
        const model::EditedPackage package{package_.kind, package_.format, package_.fileName,
                                           original,      baseline,        package_.edited};
        return WorkbookGraft(package, shifts_ - 1).make();
    }
    void compare(const SheetPair& pair) {
        SheetChange change{pair.former, pair.now, {}, pair.former == nullptr};
        if (change.isAdded) change.former = &added_.emplace_back(pair.now->name());
        if (!change.isAdded) check(change);
        change.difference = differenceBetween(former_, *change.former, now_, *change.now);
        if (!change.difference.isEmpty() && hasMovedCells(*change.former, *change.now))
            throw Refusal("rows or columns were inserted, removed or sorted", change.now->name());
        changes_.push_back(std::move(change));
    }
    void check(const SheetChange& change) const {
        const ExportedSheet& former = *change.former;
        const ExportedSheet& now = *change.now;
        if (const auto section = differentSection(former.sections, now.sections))
            throw Refusal(reasonForSection(*section), now.name());
        const bool hasFormer = now.objects.size() >= former.objects.size() &&
                               std::equal(former.objects.begin(), former.objects.end(), now.objects.begin());
        if (!hasFormer) throw Refusal("a picture, a chart or a shape was changed", now.name());
        if (hasMovedObjects(former, now, {}) &&
            hasMovedObjects(former, now,
                            placesInOriginal(package_.original, package_.fileName, former.name())))
            throw Refusal("a picture, a chart or a shape was moved or sized", now.name());
        // Calc computes the default height itself.
        if (std::abs(former.defaultHeight - now.defaultHeight) > kMeasuredHeight)
            throw Refusal("the default height of rows was changed", now.name());
    }
    model::GraftResult repeat() {
        NoFiles files;
        embedded::WorkbookContent content(originalWithAddedSheets(), files);
        BookReplay replay(content, former_, now_);
        BookPictures pictures(now_.package());
        std::map<std::string, std::string> formerNames;
        for (const SheetChange& change : changes_) {
            replay.repeat(*change.former, *change.now, change.difference);
            if (change.hasNewObjects()) {
                pictures.add(content, replay.indexOf(change.former->name()), *change.now,
                             change.former->objects.size());
            }
            if (change.isRenamed()) formerNames[change.now->name()] = change.former->name();
        }
        replay.repeatNames(formerNames);
        replay.store();
        pictures.finish(content.package());
        for (const auto& [now, former] : formerNames)
            renameSheet(content.package(), former, now);
        return savedOriginal(content.package(), package_, DocumentFamily::Excel);
    }
    [[nodiscard]] opc::Package originalWithAddedSheets() const {
        opc::Package original = opc::Package::read(package_.original, package_.fileName);
        std::string before;
        for (const SheetChange& change : changes_) {
            if (change.isAdded) addSheet(original, *change.now, before);
            before = change.former->name();
        }
        return original;
    }

    const model::EditedPackage& package_;
    int shifts_;
    FormatNumbers numbers_;
    BookExport former_;
    BookExport now_;
    std::deque<ExportedSheet> added_;
    std::vector<SheetChange> changes_;
};

}  // namespace

model::GraftResult graftBook(const model::EditedPackage& package) try {
    return WorkbookGraft(package, kMaxShifts).make();
} catch (const Refusal& refusal) {
    return refusal.refusal();
} catch (const AutomationError& error) {
    return model::GraftRefusal{error.description(), {}};
}

}  // namespace mergeloom::graft
