#include "office/libreoffice/readback/StoredContent.h"

#include "base/AutomationError.h"
#include "base/DiskFileStore.h"
#include "base/Paths.h"
#include "office/libreoffice/session/UnoProperty.h"
#include "office/libreoffice/session/UnoText.h"
#include "office/opc/ZipReader.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace mergeloom::libreoffice {

namespace {

/// Removes a file at the end of its life.
class ScopedTempFile {
  public:
    explicit ScopedTempFile(std::string path) : path_(std::move(path)) {}
    ScopedTempFile(const ScopedTempFile&) = delete;
    ScopedTempFile& operator=(const ScopedTempFile&) = delete;
    ~ScopedTempFile() {
        std::error_code ignored;
        std::filesystem::remove(path_, ignored);
    }

    [[nodiscard]] const std::string& path() const { return path_; }

  private:
    std::string path_;
};

std::unique_ptr<opc::XmlPart> partOf(const opc::ZipReader& archive, const std::string& name) {
    const auto& entries = archive.entries();
    const auto found = std::ranges::find(entries, name, &opc::ZipEntry::name);
    if (found == entries.end())
        throw AutomationError(kCommandFailed, "LibreOffice does not tell what the document holds.");
    return opc::XmlPart::parse(archive.read(*found), name, "document");
}

}  // namespace

StoredContent storedContentOf(LibreOfficeSession& session, const DocumentReference& document,
                              DocumentKind part) {
    const ScopedTempFile file(joinPath(session.process().workFolder(), "content"));
    const OUString filter = part == DocumentKind::Word ? OUString("writer8") : OUString("calc8");
    LibreOfficeFiles::storeCopy(document, file.path(),
                                {property("FilterName", filter), property("NoThumbnail", true)});
    const std::string bytes = DiskFileStore().read(file.path());
    const opc::ZipReader archive(bytes, "document");
    return {partOf(archive, "content.xml"), partOf(archive, "styles.xml")};
}

}  // namespace mergeloom::libreoffice
