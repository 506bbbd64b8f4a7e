#pragma once

#include "office/libreoffice/session/LibreOfficeProcess.h"

#include <string>

namespace mergeloom::libreoffice {

/// Looks after the file that an office writes. The office first writes into one of a name of its own beside
/// it, which it leaves there when it is killed; then, or when this process is killed, both go, and no other
/// file.
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
    int errors_;
};

}  // namespace mergeloom::libreoffice
