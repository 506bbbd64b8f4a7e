#include "office/libreoffice/readback/StoredContent.h"

#include "base/AutomationError.h"
#include "base/DiskFileStore.h"
#include "base/Paths.h"
#include "office/libreoffice/session/FileUrl.h"
#include "office/libreoffice/session/UnoProperty.h"
#include "office/libreoffice/session/UnoText.h"
#include "office/opc/ZipReader.h"

#include <algorithm>
#include <array>
#include <com/sun/star/frame/XStorable.hpp>
#include <filesystem>
#include <system_error>

namespace mergeloom::libreoffice {

namespace {

/// A file that is gone with this object.
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
    const std::array how{
        property("FilterName", part == DocumentKind::Word ? OUString("writer8") : OUString("calc8")),
        property("NoThumbnail", true), property("Overwrite", true)};
    const Reference<css::frame::XStorable> storable(document, UNO_QUERY_THROW);
    storable->storeToURL(toUno(fileUrl(file.path())), {how.data(), how.size()});
    const std::string bytes = DiskFileStore().read(file.path());
    const opc::ZipReader archive(bytes, "document");
    return {partOf(archive, "content.xml"), partOf(archive, "styles.xml")};
}

}  // namespace mergeloom::libreoffice
