#pragma once

#include "base/Messages.h"
#include "ui/designer/HostedOffice.h"
#include "ui/designer/TemplateOffice.h"
#include "ui/services/KeptCopies.h"

#include <optional>
#include <string>

namespace mergeloom {

/// Keeps a copy of the hosted document while it has changes that are not saved, and offers the copy when the
/// office or the program starts again. Belongs to the office's thread; errors of the host and of files pass
/// through.
class DocumentKeeping {
  public:
    DocumentKeeping(HostAccess& access, TemplateOffice& office, Messages& messages, KeptCopies& copies)
        : access_(access), office_(office), messages_(messages), copies_(copies) {}

    /// Keeps the document if it changed since it was last kept or saved. The original is the document's own
    /// file, or empty.
    void keep(const std::string& original);
    /// Asks the user about the copies that are left, one after the other, until one is to be opened. When a
    /// file is given, only about its own. Removes those that the user declines.
    std::optional<KeptCopy> offer(const std::string& file);
    /// Removes the copy: the document was saved, or its changes were discarded.
    void forget() { copies_.removeOwn(); }
    /// Keeps the copy for a later start.
    void leave() { copies_.release(); }

  private:
    bool isWanted(const KeptCopy& copy);

    HostAccess& access_;
    TemplateOffice& office_;
    Messages& messages_;
    KeptCopies& copies_;
};

}  // namespace mergeloom
