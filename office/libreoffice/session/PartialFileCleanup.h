#pragma once

#include "office/libreoffice/session/LibreOfficeProcess.h"

#include <string>

namespace mergeloom::libreoffice {

/// Removes a file that an office has written only in part. The office first writes into a file of its own
/// name beside it, which it leaves when it is killed; then, or when this process is killed, both are removed,
/// and no other file.
class PartialFileCleanup {
  public:
    /// The process has to outlive it.
    PartialFileCleanup(const LibreOfficeProcess& process, const std::string& path);
    PartialFileCleanup(const PartialFileCleanup&) = delete;
    PartialFileCleanup& operator=(const PartialFileCleanup&) = delete;
    /// Removes the files when an error ends the scope.
    ~PartialFileCleanup();

  private:
    const LibreOfficeProcess& process_;
    int errors_;
};

}  // namespace mergeloom::libreoffice
