#pragma once

#include "office/libreoffice/session/LibreOfficeProcess.h"

#include <string>

namespace mergeloom::libreoffice {

/// Looks after the file that an office writes. The office first writes into one of a name of its own beside
/// it, which it leaves there when it is killed; then, or when this process is killed, both go, and no other
/// file.
class PartialFileCleanup {
  public:
    /// The process has to outlive it.
    PartialFileCleanup(const LibreOfficeProcess& process, const std::string& path);
    PartialFileCleanup(const PartialFileCleanup&) = delete;
    PartialFileCleanup& operator=(const PartialFileCleanup&) = delete;
    /// Removes what was left when it is an error that ends the guard's life.
    ~PartialFileCleanup();

  private:
    const LibreOfficeProcess& process_;
    int errors_;
};

}  // namespace mergeloom::libreoffice
