#pragma once

#include "office/libreoffice/session/LibreOfficeFiles.h"
#include "office/libreoffice/session/OfficeConnection.h"
#include "office/libreoffice/session/UnoText.h"

#include <com/sun/star/embed/XHierarchicalStorageAccess.hpp>
#include <com/sun/star/io/XInputStream.hpp>
#include <string>
#include <vector>

namespace mergeloom::libreoffice {

/// A relationship of a package's part, with the last word of its type's URL.
struct PackageRelationship {
    std::string id, type, target;
};

/// A file of Open Packaging as the office reads it, for what its documents do not have (ECMA-376 Part 2). All
/// members are to be called within a call; UNO's exceptions pass through for a file that is no such package.
class OfficePackage {
  public:
    OfficePackage(OfficeConnection& connection, const OUString& url);

    /// Returns whether the package has a part that holds the document.
    [[nodiscard]] bool hasMainPart() const { return mainPart_.is(); }
    [[nodiscard]] std::vector<PackageRelationship> relationshipsOfMainPart() const;
    [[nodiscard]] Reference<css::io::XInputStream> contentOfMainPart() const;

  private:
    Reference<css::embed::XHierarchicalStorageAccess> package_;
    Reference<css::embed::XExtendedStorageStream> mainPart_;
};

/// Returns whether the document holds macros, also when only its file has them and the office has not read
/// them.
bool holdsMacros(OfficeConnection& connection, const DocumentReference& document);

/// Raises kFileCouldNotBeSaved, with a sentence that names the file, for a document with macros that is to be
/// saved in a format without them.
void refuseToLoseMacros(OfficeConnection& connection, const DocumentReference& document,
                        const std::string& path, word::WdSaveFormat format);
void refuseToLoseMacros(OfficeConnection& connection, const DocumentReference& document,
                        const std::string& path, excel::XlFileFormat format);

}  // namespace mergeloom::libreoffice
