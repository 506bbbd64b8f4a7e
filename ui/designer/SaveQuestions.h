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

    /// Asks if the office's version may be saved in the path. Returns true if the user agrees, after it has
    /// made a backup of the present file. Saves a copy under another name instead if the user chooses that;
    /// its dialog starts in the folder.
    bool acceptsLoss(const model::LossySave& loss, const std::string& path, const std::string& folder);
    /// Asks if a document with a password may be written to the path without it. Returns true if the user
    /// agrees.
    bool acceptsUnprotected(const std::string& path);
    /// Asks if the differing copy is to be saved under another name, and saves it if the user agrees.
    void offerCopy(const model::DifferingCopy& copy, const std::string& path, const std::string& folder);

  private:
    void saveElsewhere(const std::string& bytes, const std::string& path, const std::string& folder);

    Messages& messages_;
    TemplateOffice& office_;
    TemplateFiles& files_;
    TemplateDialogs dialogs_;
};

}  // namespace mergeloom
