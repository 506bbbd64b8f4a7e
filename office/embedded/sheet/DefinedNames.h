#pragma once

#include "office/embedded/sheet/UndoLog.h"

#include <cstdint>
#include <optional>
#include <pugixml.hpp>
#include <string>

namespace mergeloom::embedded {

/// The defined names of a workbook (ECMA-376 Part 1, 18.2.5). Names are one space for the workbook and one
/// for each sheet, compared without regard to letter case. Names keep their index as long as no step is taken
/// back; what is not touched stays as it stands.
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

    // Made by WorkbookPart over its tree.

    [[nodiscard]] std::size_t count() const;
    [[nodiscard]] Entry at(std::size_t index) const;
    [[nodiscard]] std::optional<std::size_t> find(const std::string& name, int sheet = kWorkbook) const;
    /// Defines a name of the workbook, or defines it anew, and answers its index. Raises kApplicationDefined
    /// for what is no name.
    std::size_t define(const std::string& name, const std::string& formula);
    void setFormula(std::size_t index, const std::string& formula);
    /// The smallest number n from 1 for which no name of the workbook is stem followed by n. Does not try all
    /// numbers again at each question.
    [[nodiscard]] std::int64_t firstFreeCounter(const std::string& stem);
};

/// Whether a text can be a defined name: letters, digits, "_", ".", "\" and "?", no digit first, at most 255
/// characters, and nothing that reads as a cell in either notation ("A1", "R1C1", "R", "C").
bool isDefinedName(const std::string& text);

}  // namespace mergeloom::embedded
