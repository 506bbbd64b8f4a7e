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

/// An Open Packaging file as the office reads it, for data that its documents lack (ECMA-376 Part 2). All
/// members must be called within OfficeConnection::call. They raise UNO's exceptions for a file that is no
/// such package.
class OfficePackage {
  public:
    /// Takes a URL or an input stream.
    OfficePackage(OfficeConnection& connection, const css::uno::Any& source);

    /// Returns true if the package has a main part.
    [[nodiscard]] bool hasMainPart() const { return mainPart_.is(); }
    [[nodiscard]] std::vector<PackageRelationship> relationshipsOfMainPart() const;
    [[nodiscard]] Reference<css::io::XInputStream> contentOfMainPart() const;

  private:
    Reference<css::embed::XHierarchicalStorageAccess> package_;
    Reference<css::embed::XExtendedStorageStream> mainPart_;
};

/// Raises kFileCouldNotBeSaved, with a sentence that names the file, for a document with macros that is to be
/// saved in a format without them. Includes macros that only the document's file has. The file is the result
/// of LibreOfficeFiles::packageOf.
void refuseToLoseMacros(OfficeConnection& connection, const DocumentReference& document,
                        const css::uno::Any& file, const std::string& path, SaveFormat format);

}  // namespace mergeloom::libreoffice
