#pragma once

#include "office/model/NameCounters.h"
#include "office/model/excel/Forward.h"

#include <cstdint>
#include <string>

namespace mergeloom::excel {

/// The defined names of a workbook. Names are compared without regard to letter case.
class Names : public Counted {
  public:
    /// Raises kApplicationDefined for a number outside 1 to Count.
    virtual DefinedNamePtr Item(int number) = 0;
    /// A name of the workbook, or of a sheet when it is given as Sheet!Name. Raises kApplicationDefined for a
    /// name that is not defined.
    virtual DefinedNamePtr Item(const std::string& name) = 0;
    /// Whether the name is taken: Item finds it, or it is that of a table, which Add refuses. A question that
    /// is asked for each place should not cost an error.
    virtual bool Exists(const std::string& name) = 0;

    /// Names.Add: defines a name of the workbook. A name of the workbook that is there already is defined
    /// anew; one of a sheet stays beside it. References without a sheet lead to the active sheet. Raises
    /// kApplicationDefined, and changes nothing, for what is no name (ECMA-376 Part 1, 18.2.5; a name that
    /// reads as a cell's address is none) or no formula.
    virtual DefinedNamePtr Add(const std::string& name, const std::string& refersToLocal) = 0;

    /// The smallest number n from 1 for which Exists(stem followed by n) is false. An office that can tell
    /// faster than by trying does so.
    virtual std::int64_t firstFreeCounter(const std::string& stem) {
        return model::firstFreeCounter(stem, [&](const std::string& name) { return Exists(name); });
    }

  protected:
    std::size_t indexOf(int number) {
        return Counted::indexOf(number, kApplicationDefined, "There is no name of that number.");
    }
};

}  // namespace mergeloom::excel
