#include "describe/access/AccessFile.h"

#include "base/AutomationError.h"

#include <filesystem>
#include <system_error>

namespace mergeloom::describe::access {

namespace {

/// The offset of the next page's number in a page of a definition.
constexpr int kNextPageOffset = 4;
constexpr std::size_t kPageHeaderSize = 8;

std::size_t sizeOf(const std::string& path) {
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    return error ? 0 : static_cast<std::size_t>(size);
}

[[noreturn]] void refuse(const std::string& reason) {
    throw AutomationError(kFileCouldNotBeRead, reason);
}

}  // namespace

void raiseDamaged() {
    refuse("it is damaged.");
}

AccessFile::AccessFile(const std::string& path)
    : size_(sizeOf(path)), handle_(mdb_open(path.c_str(), MDB_NOFLAGS), mdb_close) {
    if (handle_ == nullptr) raiseDamaged();
    // The library does not support the encryption of Access 2007 and later.
    if (handle_->f->jet_version >= MDB_VER_ACCDB_2007 && handle_->f->db_key != 0) refuse("it is encrypted.");
    GPtrArray* const catalog = mdb_read_catalog(handle_.get(), MDB_ANY);
    if (catalog == nullptr) refuse("it is damaged or encrypted.");
    // The library's own search reads the whole catalog again.
    for (MdbCatalogEntry* const entry : itemsOf<MdbCatalogEntry>(catalog)) {
        if (entry->object_type == MDB_TABLE) tables_.emplace(entry->object_name, entry);
    }
}

MdbCatalogEntry* AccessFile::tableNamed(const std::string& name) const {
    const auto found = tables_.find(name);
    if (found == tables_.end()) raiseDamaged();
    return found->second;
}

std::vector<unsigned char> AccessFile::definitionAt(unsigned long page) const {
    MdbHandle* const mdb = handle_.get();
    const auto pageSize = static_cast<std::size_t>(mdb->fmt->pg_size);
    std::vector<unsigned char> definition;
    while (page != 0) {
        if (definition.size() > size_ || mdb_read_pg(mdb, page) == 0) raiseDamaged();
        if (mdb->pg_buf[0] != MDB_PAGE_TABLE) raiseDamaged();
        const std::size_t skipped = definition.empty() ? 0 : kPageHeaderSize;
        definition.insert(definition.end(), mdb->pg_buf + skipped, mdb->pg_buf + pageSize);
        page = static_cast<unsigned long>(mdb_get_int32(mdb->pg_buf, kNextPageOffset));
    }
    return definition;
}

}  // namespace mergeloom::describe::access
