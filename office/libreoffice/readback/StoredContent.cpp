#include "office/libreoffice/readback/StoredContent.h"

#include "base/AutomationError.h"
#include "base/DiskFileStore.h"
#include "base/Paths.h"
#include "office/libreoffice/session/UnoProperty.h"
#include "office/libreoffice/session/UnoText.h"
#include "office/opc/ZipReader.h"

#include <algorithm>

namespace mergeloom::libreoffice {

namespace {

std::unique_ptr<opc::XmlPart> partOf(const opc::ZipReader& archive, const std::string& name) {
    const auto& entries = archive.entries();
    const auto found = std::ranges::find(entries, name, &opc::ZipEntry::name);
    if (found == entries.end())
        throw AutomationError(kCommandFailed, "LibreOffice does not tell what the document holds.");
    return opc::XmlPart::parse(archive.read(*found), name, "document");
}

}  // namespace

StoredContent storedContentOf(LibreOfficeSession& session, const DocumentReference& document,
                              DocumentKind kind) {
    const std::string folder = session.process().workFolder();
    const ScratchPaths scratch(folder);
    const ScopedTempFile file(scratch, joinPath(folder, "content"));
    const OUString filter = kind == DocumentKind::Word ? OUString("writer8") : OUString("calc8");
    LibreOfficeFiles::storeCopy(document, file.path(),
                                {property("FilterName", filter), property("NoThumbnail", true)});
    const std::string bytes = DiskFileStore().read(file.path());
    const opc::ZipReader archive(bytes, "document");
    return {partOf(archive, "content.xml"), partOf(archive, "styles.xml")};
}

}  // namespace mergeloom::libreoffice
