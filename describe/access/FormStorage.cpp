#include "describe/access/FormStorage.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "describe/access/FormControls.h"
#include "describe/access/TableScan.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <string_view>

namespace mergeloom::describe::access {

namespace {

constexpr const char* kStorage = "MSysAccessStorage";
constexpr const char* kRoot = "MSysAccessStorage_ROOT";
constexpr const char* kDirectory =
    "\x03"
    "DirData";

/// The head of an entry of the directory, which is followed by the size of the rest in one byte: the name and
/// the number of the form's folder.
constexpr unsigned char kEntryMark = 4;
constexpr std::size_t kDirectoryHead = 4;
constexpr std::size_t kFolderSize = 4;

/// The name of a folder is one character, counted from here.
constexpr char32_t kFirstFolder = U'0';
constexpr std::uint64_t kMaxFolder = 0xD000;

/// A storage in the rows of a table: folders and streams.
class StorageTable {
  public:
    explicit StorageTable(const AccessFile& file) : file_(file) {
        TableScan rows(file, kStorage, {"Id", "ParentId", "Name"});
        while (rows.next()) {
            const std::int64_t id = rows.number(0);
            const std::int64_t parent = rows.number(1);
            const std::string name = rows.text(2);
            // The root is its own parent.
            if (name == kRoot) root_ = id;
            if (id != parent) entries_[parent][name] = id;
        }
    }

    [[nodiscard]] std::int64_t root() const { return root_; }
    /// Returns the entry of a folder, or 0 if it has none of that name.
    [[nodiscard]] std::int64_t entryOf(std::int64_t folder, const std::string& name) const {
        const auto entries = entries_.find(folder);
        if (entries == entries_.end()) return 0;
        const auto found = entries->second.find(name);
        return found == entries->second.end() ? 0 : found->second;
    }

    /// Reads the bytes of all these streams.
    [[nodiscard]] std::map<std::int64_t, std::string> read(const std::vector<std::int64_t>& streams) const {
        std::map<std::int64_t, std::string> contents;
        TableScan rows(file_, kStorage, {"Id", "Lv"});
        while (rows.next()) {
            const std::int64_t id = rows.number(0);
            if (std::ranges::find(streams, id) != streams.end()) contents[id] = rows.text(1);
        }
        return contents;
    }

  private:
    const AccessFile& file_;
    std::int64_t root_ = 0;
    std::map<std::int64_t, std::map<std::string, std::int64_t>> entries_;
};

Bytes bytesOf(const std::string& text) {
    return {reinterpret_cast<const unsigned char*>(text.data()), text.size()};
}

/// Returns the names of the folders of all forms in the directory.
std::map<std::string, std::string> foldersIn(Bytes directory) {
    std::map<std::string, std::string> folders;
    if (directory.size() < kDirectoryHead) return folders;
    directory = directory.subspan(kDirectoryHead);
    while (directory.size() >= 2 && directory[0] == kEntryMark) {
        const std::size_t size = directory[1];
        if (size < kFolderSize || directory.size() < 2 + size) raiseDamaged();
        const Bytes name = directory.subspan(2, size - kFolderSize);
        const std::uint64_t folder = unsignedOf(directory.subspan(2 + name.size(), kFolderSize));
        if (folder > kMaxFolder || name.size() % 2 != 0) raiseDamaged();
        appendCodePoint(folders[textOf(name)], kFirstFolder + static_cast<char32_t>(folder));
        directory = directory.subspan(2 + size);
    }
    if (!directory.empty()) raiseDamaged();
    return folders;
}

/// The streams of a form.
struct FormStreams {
    std::int64_t design = 0;
    std::int64_t changes = 0;  ///< to the design; empty unless Access was interrupted
};

class FormStorage {
  public:
    explicit FormStorage(const AccessFile& file) : table_(file) {
        const std::int64_t forms = table_.entryOf(table_.root(), "Forms");
        const std::int64_t directory = table_.entryOf(forms, kDirectory);
        const std::map<std::string, std::string> folders =
            foldersIn(bytesOf(table_.read({directory})[directory]));
        std::vector<std::int64_t> wanted;
        for (const auto& [name, folderName] : folders) {
            const std::int64_t folder = table_.entryOf(forms, folderName);
            const FormStreams streams{table_.entryOf(folder, "Blob"), table_.entryOf(folder, "BlobDelta")};
            wanted.insert(wanted.end(), {streams.design, streams.changes});
            streams_.emplace(foldCase(name), streams);
        }
        contents_ = table_.read(wanted);
    }

    /// Returns the form with this name. Raises kFileCouldNotBeRead.
    StoredForm form(const std::string& name) {
        const FormStreams streams = streams_[foldCase(name)];
        const std::string& design = contents_[streams.design];
        if (!contents_[streams.changes].empty()) raiseDamaged();
        return formOf(name, readDesign(bytesOf(design)));
    }

  private:
    StorageTable table_;
    std::map<std::string, FormStreams> streams_;
    std::map<std::int64_t, std::string> contents_;
};

void readEach(const AccessFile& file, const std::vector<std::string>& names, AccessSchema& schema) {
    FormStorage storage(file);
    for (const std::string& name : names) {
        try {
            schema.forms.push_back(storage.form(name));
        } catch (const AutomationError&) {
            schema.remarks.push_back("The form '" + name + "' is left out: its design cannot be read.");
        }
    }
}

}  // namespace

void readForms(const AccessFile& file, const std::vector<std::string>& names, AccessSchema& schema) {
    if (!file.hasTable(kStorage)) {
        schema.remarks.emplace_back(
            "The stored forms are left out: those of Access 2000 and earlier cannot be read.");
        return;
    }
    try {
        readEach(file, names, schema);
    } catch (const AutomationError&) {
        schema.remarks.emplace_back("The stored forms are left out: their directory cannot be read.");
    }
}

}  // namespace mergeloom::describe::access
