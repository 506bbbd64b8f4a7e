#pragma once

#include "office/embedded/sheet/UndoLog.h"
#include "office/model/FreeNumbers.h"
#include "office/opc/XmlPart.h"

#include <cstdint>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <unordered_map>
#include <vector>

namespace mergeloom::embedded {

/// The defined names of a workbook (ECMA-376 Part 1, 18.2.5). Names are one space for the workbook and one
/// for each sheet, compared without regard to letter case. Names keep their index as long as none is
/// removed and no step is undone. An entry without a name, or of a sheet that the workbook does not list, is
/// left alone and not counted.
class DefinedNames {
  public:
    /// The scope of a name of the whole workbook.
    static constexpr int kWorkbook = -1;

    struct Entry {
        std::string name;
        int sheet = kWorkbook;  ///< the index of its sheet in the workbook's list
        bool hidden = false;
        std::string formula;  ///< without "="
    };

    /// Reads the names of a workbook with that many sheets. Part and state must outlive this object.
    DefinedNames(opc::XmlPart& part, PartState& state, std::size_t sheetCount);
    DefinedNames(const DefinedNames&) = delete;
    DefinedNames& operator=(const DefinedNames&) = delete;

    [[nodiscard]] std::size_t count() const;
    [[nodiscard]] Entry at(std::size_t index) const;
    [[nodiscard]] std::optional<std::size_t> find(const std::string& name, int sheet = kWorkbook) const;
    /// Defines or redefines a name of the workbook, or of a sheet, and returns its index. Raises
    /// kApplicationDefined for an invalid name.
    std::size_t define(const std::string& name, const std::string& formula, int sheet = kWorkbook);
    void setFormula(std::size_t index, const std::string& formula);
    void remove(std::size_t index);
    /// Returns the smallest number n from 1 for which no name of the workbook is stem followed by n. Later
    /// calls do not try all numbers again.
    [[nodiscard]] std::int64_t firstFreeCounter(const std::string& stem);

  private:
    void list(pugi::xml_node node, int sheet);
    std::size_t append(const std::string& name, const std::string& formula, int sheet);
    pugi::xml_node ensureList();
    void removeEmptyList(pugi::xml_node names);
    void undoAppend(pugi::xml_node node);
    void unlist(std::size_t index);
    void undoRemove(pugi::xml_node node, std::size_t index);

    opc::XmlPart& part_;
    PartState& state_;
    std::vector<pugi::xml_node> nodes_;
    std::unordered_map<std::string, std::size_t> indexes_;  ///< by folded name and scope
    model::FreeNumbers counters_;
};

}  // namespace mergeloom::embedded
