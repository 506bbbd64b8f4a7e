#pragma once

#include "office/model/FreeNumbers.h"
#include "office/model/excel/Forward.h"

#include <cstdint>
#include <string>

namespace mergeloom::excel {

/// Excel's Name object, named differently since a C++ class can have no member of its own name.
class DefinedName : public Object {
  public:
    /// Returns the name; that of a sheet follows the sheet's name and "!".
    virtual std::string Name() = 0;
    /// Returns true when dialogs show the name.
    virtual bool Visible() = 0;
    /// Returns the formula, with "=" before it.
    virtual std::string RefersToLocal() = 0;
    virtual void SetRefersToLocal(const std::string& formula) = 0;
    /// Returns the cells that the name refers to. Raises kApplicationDefined for a constant, a formula, cells
    /// of another workbook, or deleted cells (#REF!).
    virtual RangePtr RefersToRange() = 0;
    /// Name.Delete. Neither this object nor those of other names that were asked for before can be used
    /// afterwards.
    virtual void Delete() = 0;
};

/// The defined names of a workbook. Names are compared regardless of letter case.
class Names : public Counted {
  public:
    /// Raises kApplicationDefined for a number outside 1 to Count.
    virtual DefinedNamePtr Item(int number) = 0;
    /// Returns a name of the workbook, or of a sheet when it is given as Sheet!Name. Raises
    /// kApplicationDefined for a name that is not defined.
    virtual DefinedNamePtr Item(const std::string& name) = 0;
    /// Returns true when the name is taken: Item finds it, or it is that of a table, which Add refuses. It is
    /// called for each place, where catching an error of Item would be slow.
    virtual bool Exists(const std::string& name) = 0;

    /// Names.Add: defines a name of the workbook. An existing name of the workbook is redefined; one of a
    /// sheet stays beside it. References without a sheet lead to the active sheet. Raises
    /// kApplicationDefined, and changes nothing, for an invalid name (ECMA-376 Part 1, 18.2.5; the address of
    /// a cell is no name) or an invalid formula.
    virtual DefinedNamePtr Add(const std::string& name, const std::string& refersToLocal) = 0;

    /// Returns the smallest number n from 1 for which Exists(stem followed by n) is false. An office with a
    /// faster way than trying overrides it.
    virtual std::int64_t firstFreeCounter(const std::string& stem) {
        return model::firstFreeCounter(stem, [&](const std::string& name) { return Exists(name); });
    }

  protected:
    std::size_t indexOf(int number) {
        return Counted::indexOf(number, kApplicationDefined, "There is no name of that number.");
    }
};

}  // namespace mergeloom::excel
