#pragma once

#include "office/libreoffice/word/WriterContent.h"
#include "office/opc/PictureFile.h"

#include <string>

namespace mergeloom::libreoffice {

/// A picture file on its way into a text.
class InlinePicture {
  public:
    /// Raises kFileCouldNotBeRead when the file is missing or no picture.
    InlinePicture(WriterContent& content, const std::string& fileName);

    /// Puts it into the text as one character, in the size that its pixels and resolution give, never wider
    /// than the text area. Returns a cursor over it.
    [[nodiscard]] CursorReference insert(const CursorReference& place) const;

  private:
    WriterContent& content_;
    std::string bytes_;
    opc::PictureFile file_;
    std::string name_;
};

}  // namespace mergeloom::libreoffice
