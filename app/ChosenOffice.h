#pragma once

#include "app/OfficeFormats.h"
#include "base/FileStore.h"
#include "office/factory/OfficeFactory.h"
#include "office/model/FileConverter.h"

#include <memory>

namespace mergeloom {

/// The office that a run works with. The embedded one hands over to an installed LibreOffice what it does not
/// write or read itself; that costs nothing before such a file comes.
class ChosenOffice {
  public:
    /// The file store has to outlive it, and it the offices that it starts.
    ChosenOffice(OfficeKind kind, FileStore& files)
        : kind_(kind),
          files_(files),
          converter_(makeFileConverter(files)),
          formats_(kind, files, *converter_) {}

    [[nodiscard]] const OfficeFormats& formats() const { return formats_; }
    /// Errors as for makeWordApplication.
    word::ApplicationPtr startWord();
    excel::ApplicationPtr startExcel();

  private:
    OfficeKind kind_;
    FileStore& files_;
    std::unique_ptr<FileConverter> converter_;
    OfficeFormats formats_;
};

}  // namespace mergeloom
