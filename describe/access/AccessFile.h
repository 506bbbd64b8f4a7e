#pragma once

// Before the library's header, which includes it as though it were C throughout.
#include <glib.h>
#include <mdbtools.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace mergeloom::describe::access {

/// Raises kFileCouldNotBeRead with the reason that the file is damaged.
[[noreturn]] void raiseDamaged();

/// A database file of Access that is open.
class AccessFile {
  public:
    /// Raises kFileCouldNotBeRead with a reason, such as "it is encrypted.".
    explicit AccessFile(const std::string& path);

    [[nodiscard]] MdbHandle* handle() const { return handle_.get(); }
    /// Returns the size of the file in bytes, which limits what can be in it.
    [[nodiscard]] std::size_t size() const { return size_; }
    [[nodiscard]] bool isJet3() const { return handle_->f->jet_version == MDB_VER_JET3; }
    /// Returns the pages of a table's definition one after the other, without the headers of the later ones.
    /// Raises kFileCouldNotBeRead.
    [[nodiscard]] std::vector<unsigned char> definitionAt(unsigned long page) const;

  private:
    std::size_t size_;
    std::unique_ptr<MdbHandle, void (*)(MdbHandle*)> handle_;
};

}  // namespace mergeloom::describe::access
