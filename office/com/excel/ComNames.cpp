#include "office/com/excel/ComNames.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "office/com/automation/KnownNames.h"
#include "office/com/excel/ComCellRange.h"
#include "office/model/excel/DefinedNameRule.h"
#include "office/model/excel/Names.h"
#include "office/model/excel/SheetReference.h"

#include <optional>
#include <set>
#include <utility>

namespace mergeloom::com {

namespace {

bool isOfSheet(const std::string& name) {
    return name.find('!') != std::string::npos;
}

/// Returns a name as Excel writes it: Sheet!Name with the sheet in apostrophes where they are required.
std::string writtenName(const std::string& name) {
    const std::size_t mark = name.rfind('!');
    if (mark == std::string::npos) return name;
    return excel::writtenSheetName(name.substr(0, mark)) + name.substr(mark);
}

/// Returns a name as the model has it, without apostrophes around the sheet.
std::string plainName(const std::string& name) {
    const std::size_t mark = name.rfind('!');
    const bool isQuoted = mark != std::string::npos && mark > 1 && name.front() == '\'';
    if (!isQuoted) return name;
    return replaceAll(name.substr(1, mark - 2), "''", "'") + name.substr(mark);
}

class ComName final : public excel::DefinedName {
  public:
    ComName(ComExcelModelPtr model, AutomationObject name)
        : model_(std::move(model)), name_(std::move(name)) {}

    std::string Name() override { return plainName(name_.get("Name").text()); }
    bool Visible() override { return name_.get("Visible").truth(); }
    std::string RefersToLocal() override { return name_.get("RefersToLocal").text(); }
    void SetRefersToLocal(const std::string& formula) override { name_.put("RefersToLocal", formula); }
    excel::RangePtr RefersToRange() override {
        return rangeOf(model_, name_.object("Range", "RefersToRange"));
    }
    void Delete() override { name_.call("Delete"); }

  private:
    ComExcelModelPtr model_;
    AutomationObject name_;
};

class ComNames final : public excel::Names {
  public:
    ComNames(ComExcelModelPtr model, AutomationObject workbook, AutomationObject names)
        : model_(std::move(model)),
          workbook_(std::move(workbook)),
          names_(std::move(names)),
          known_(names_, "Name") {}

    int Count() override { return names_.get("Count").integer(); }
    excel::DefinedNamePtr Item(int number) override {
        return make(names_.object("Name", "Item", {static_cast<int>(indexOf(number)) + 1}));
    }
    excel::DefinedNamePtr Item(const std::string& name) override {
        if (const std::optional<AutomationObject> found = find(name)) return make(*found);
        throw AutomationError(kApplicationDefined, "There is no name '" + name + "'.");
    }
    bool Exists(const std::string& name) override {
        const bool isName = known_.mayHave(writtenName(name)) && find(name).has_value();
        return isName || tableNames().contains(foldCase(name));
    }
    excel::DefinedNamePtr Add(const std::string& name, const std::string& refersToLocal) override;

  private:
    std::optional<AutomationObject> find(const std::string& name);
    const std::set<std::string>& tableNames();
    excel::DefinedNamePtr make(const AutomationObject& name) {
        return std::make_shared<ComName>(model_, name);
    }

    ComExcelModelPtr model_;
    AutomationObject workbook_;
    AutomationObject names_;
    KnownNames known_;
    std::optional<std::set<std::string>> tableNames_;  ///< case folded
};

excel::DefinedNamePtr ComNames::Add(const std::string& name, const std::string& refersToLocal) {
    if (!excel::isDefinedName(name))
        throw AutomationError(kApplicationDefined, "'" + name + "' cannot be a name.");
    known_.add(name);
    // Excel would take any other text for a constant.
    const bool isFormula = refersToLocal.size() > 1 && refersToLocal.front() == '=';
    if (!isFormula) throw AutomationError(kApplicationDefined, "'" + refersToLocal + "' is no formula.");
    return make(names_.callForObject("Name", "Add", {{"Name", name}, {"RefersToLocal", refersToLocal}}));
}

std::optional<AutomationObject> ComNames::find(const std::string& name) {
    try {
        AutomationObject found = names_.object("Name", "Item", {writtenName(name)});
        // Excel also finds a name of the active sheet without its sheet.
        if (!isOfSheet(name) && isOfSheet(found.get("Name").text())) return {};
        return found;
    } catch (const AutomationError& error) {
        if (error.number() != kApplicationDefined) throw;
        return {};
    }
}

const std::set<std::string>& ComNames::tableNames() {
    if (tableNames_) return *tableNames_;
    tableNames_.emplace();
    for (const AutomationObject& sheet : workbook_.object("Sheets", "Worksheets").items("Worksheet")) {
        for (const AutomationObject& table : sheet.object("ListObjects", "ListObjects").items("ListObject"))
            tableNames_->insert(foldCase(table.get("Name").text()));
    }
    return *tableNames_;
}

}  // namespace

excel::NamesPtr makeNames(const ComExcelModelPtr& model, const AutomationObject& workbook) {
    return std::make_shared<ComNames>(model, workbook, workbook.object("Names", "Names"));
}

}  // namespace mergeloom::com
