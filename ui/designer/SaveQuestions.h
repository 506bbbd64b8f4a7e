#pragma once

#include "base/Messages.h"
#include "office/model/OfficeDocument.h"
#include "ui/designer/TemplateDialogs.h"
#include "ui/designer/TemplateFiles.h"
#include "ui/designer/TemplateOffice.h"

#include <string>

namespace mergeloom {

/// Asks the user about a save that would lose or change content, and writes the copies that the user chooses.
class SaveQuestions {
  public:
    /// The arguments must outlive it.
    SaveQuestions(Messages& messages, TemplateOffice& office, TemplateFiles& files, FileDialog& dialog)
        : messages_(messages), office_(office), files_(files), dialogs_(dialog) {}

    /// Returns true if the office's version is to be saved in the path; the present file is kept beside it
    /// then. Writes a copy under another name if the user wants that instead, in a dialog that begins in the
    /// folder.
    bool acceptsLoss(const model::LossySave& loss, const std::string& path, const std::string& folder);
    /// Returns true if a document with a password may be written to the path without one.
    bool acceptsUnprotected(const std::string& path);
    /// Writes the differing copy under another name if the user wants it.
    void offerCopy(const model::DifferingCopy& copy, const std::string& path, const std::string& folder);

  private:
    void saveElsewhere(const std::string& bytes, const std::string& path, const std::string& folder);

    Messages& messages_;
    TemplateOffice& office_;
    TemplateFiles& files_;
    TemplateDialogs dialogs_;
};

}  // namespace mergeloom
