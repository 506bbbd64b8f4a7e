#pragma once

#include "office/libreoffice/session/LibreOfficeProcess.h"

#include <string>
#include <vector>

namespace mergeloom::libreoffice {

/// Looks after the folder in which an office writes a file. The office first writes into a file of a name of
/// its own beside it, which it leaves there when it is killed; then, or when this process is killed, both go.
class FragmentGuard {
  public:
    /// The process has to outlive it.
    FragmentGuard(const LibreOfficeProcess& process, const std::string& path);
    FragmentGuard(const FragmentGuard&) = delete;
    FragmentGuard& operator=(const FragmentGuard&) = delete;
    /// Removes what was left when it is an error that ends the guard's life.
    ~FragmentGuard();

  private:
    const LibreOfficeProcess& process_;
    std::string folder_;
    std::vector<std::string> beginnings_;  ///< of the names of the files
    int errors_;
};

}  // namespace mergeloom::libreoffice
