#pragma once

#include "office/model/word/Forward.h"

#include <string>

namespace mergeloom::word {

class Documents : public Counted {
  public:
    /// Makes a document from a template, or an empty one when the path is empty, and makes it active with
    /// the caret at its start. Raises kFileCouldNotBeRead with a sentence that names the file and what is
    /// wrong with it.
    virtual DocumentPtr Add(const std::string& templatePath) = 0;
    /// Opens a document to change it in place; errors as for Add.
    virtual DocumentPtr Open(const std::string& fileName) = 0;
    virtual DocumentPtr Item(int number) = 0;

  protected:
    std::size_t indexOf(int number) {
        return Counted::indexOf(number, kMemberNotFound, "There is no such document.");
    }
};

}  // namespace mergeloom::word
