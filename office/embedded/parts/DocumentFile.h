#pragma once

#include "base/FileStore.h"
#include "office/embedded/parts/SaveFormats.h"
#include "office/opc/Package.h"

#include <string>

namespace mergeloom::embedded {

/// The file of an open document: where it came from and where it goes.
class DocumentFile {
  public:
    /// A document that was opened has its path as full name, a new one a name without a folder. The file
    /// store has to outlive the file.
    DocumentFile(FileStore& files, std::string fullName, bool wasOpened)
        : files_(files), fullName_(std::move(fullName)), hasFile_(wasOpened) {}

    [[nodiscard]] const std::string& fullName() const { return fullName_; }
    [[nodiscard]] std::string name() const;

    /// Raises kFileCouldNotBeSaved, also for a document that has no file yet; an existing file stays whole.
    void save(opc::Package& package);
    /// Writes the document as another file, whose name it has from then on. Errors as for save and for
    /// setSaveFormat; the document stays what it was then.
    void saveAs(opc::Package& package, DocumentFamily family, int number, const std::string& fileName);

  private:
    void write(opc::Package& package, const std::string& fileName);

    FileStore& files_;
    std::string fullName_;
    bool hasFile_;
};

}  // namespace mergeloom::embedded
