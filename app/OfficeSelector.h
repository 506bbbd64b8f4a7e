#pragma once

#include "app/CAutoMapping.h"
#include "app/GnuOptions.h"
#include "app/OfficeFormats.h"
#include "base/FileStore.h"
#include "office/factory/OfficeFactory.h"
#include "office/model/FileConverter.h"

#include <memory>
#include <string>

namespace mergeloom {

/// Starts the office that the command line selects. The embedded one leaves files that it does not write or
/// read itself to an installed LibreOffice, which costs nothing before such a file comes.
class OfficeSelector {
  public:
    /// The file store has to outlive it, and it has to outlive the offices that it starts.
    OfficeSelector(const GnuOptions& options, FileStore& files)
        : kind_(kindOf(options.office)),
          traceFile_(options.traceFile),
          files_(files),
          converter_(makeFileConverter(files)),
          formats_(kind_, files, *converter_) {}

    [[nodiscard]] const OfficeFormats& formats() const { return formats_; }
    [[nodiscard]] FileConverter& converter() { return *converter_; }
    /// Start the office; errors as for makeWordApplication.
    word::ApplicationPtr startWord();
    excel::ApplicationPtr startExcel();
    /// Makes a mapping by this office, which has to outlive it, as have the ports.
    CAutoMapping makeMapping(ErrorHandler& errors, Messages& messages, Progress& progress);

  private:
    static OfficeKind kindOf(OfficeChoice choice);

    OfficeKind kind_;
    std::string traceFile_;
    FileStore& files_;
    std::unique_ptr<FileConverter> converter_;
    OfficeFormats formats_;
};

}  // namespace mergeloom
