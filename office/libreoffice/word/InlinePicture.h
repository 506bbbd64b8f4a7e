#pragma once

#include "office/libreoffice/word/WriterContent.h"
#include "office/opc/PictureFile.h"

#include <string>

namespace mergeloom::libreoffice {

/// A picture file that is inserted into a text.
class InlinePicture {
  public:
    /// Raises kFileCouldNotBeRead if the file is missing or not a picture.
    InlinePicture(WriterContent& content, const std::string& fileName);

    /// Inserts it into the text as one character, in the size that its pixels and resolution give, never
    /// wider than the text area. Returns a cursor over it.
    [[nodiscard]] CursorReference insert(const CursorReference& place) const;

  private:
    WriterContent& content_;
    std::string bytes_;
    opc::PictureFile file_;
    std::string name_;
};

}  // namespace mergeloom::libreoffice
