#pragma once

#include "office/model/excel/Forward.h"

#include <string>

namespace mergeloom::excel {

class Workbooks : public Counted {
  public:
    /// Makes a workbook from a template, or an empty one with one sheet when the path is empty, and makes it
    /// active. Raises kFileCouldNotBeRead with a sentence that names the file and what is wrong with it.
    virtual WorkbookPtr Add(const std::string& templatePath) = 0;
    /// Opens a workbook to change it in place; errors as for Add.
    virtual WorkbookPtr Open(const std::string& fileName) = 0;
    virtual WorkbookPtr Item(int number) = 0;

  protected:
    std::size_t indexOf(int number) {
        return Counted::indexOf(number, kSubscriptOutOfRange, "There is no such workbook.");
    }
};

}  // namespace mergeloom::excel
