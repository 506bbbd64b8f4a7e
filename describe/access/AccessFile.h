#pragma once

// Must be included before the library's header, which includes it within extern "C".
#include <glib.h>
#include <mdbtools.h>

#include <cstddef>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace mergeloom::describe::access {

/// Raises kFileCouldNotBeRead with the reason that the file is damaged.
[[noreturn]] void raiseDamaged();

/// Returns the items of an array of the library. Raises kFileCouldNotBeRead if there is no array.
template <typename Item>
std::span<Item*> itemsOf(GPtrArray* array) {
    if (array == nullptr) raiseDamaged();
    return {reinterpret_cast<Item**>(array->pdata), array->len};
}

/// A database file of Access that is open.
class AccessFile {
  public:
    /// Raises kFileCouldNotBeRead with a reason, such as "it is encrypted.".
    explicit AccessFile(const std::string& path);

    [[nodiscard]] MdbHandle* handle() const { return handle_.get(); }
    /// Returns the size of the file in bytes, an upper limit for sizes within it.
    [[nodiscard]] std::size_t size() const { return size_; }
    [[nodiscard]] bool isJet3() const { return handle_->f->jet_version == MDB_VER_JET3; }
    [[nodiscard]] bool hasTable(const std::string& name) const { return tables_.contains(name); }
    /// Returns the catalog's entry of a table, which is valid as long as this object. Raises
    /// kFileCouldNotBeRead if there is none.
    [[nodiscard]] MdbCatalogEntry* tableNamed(const std::string& name) const;
    /// Returns the concatenated pages of a table's definition, without the headers of all but the first one.
    /// Raises kFileCouldNotBeRead.
    [[nodiscard]] std::vector<unsigned char> definitionAt(unsigned long page) const;

  private:
    std::size_t size_;
    std::unique_ptr<MdbHandle, void (*)(MdbHandle*)> handle_;
    std::map<std::string, MdbCatalogEntry*> tables_;
};

}  // namespace mergeloom::describe::access
