#pragma once

#include "base/FileStore.h"
#include "office/formats/FormatTable.h"
#include "office/opc/Package.h"

#include <string>

/// The formats that the engine writes. The formats of one family differ only in the main part's content type
/// and in whether they may contain macros.
namespace mergeloom::embedded {

/// Returns true if the engine writes the format, a number of WdSaveFormat or XlFileFormat.
bool canWrite(DocumentFamily family, int number);

/// The file of an open document: its name, and saving to it.
class DocumentFile {
  public:
    /// The full name of a document that was opened is its path, that of a new one a name without a folder.
    /// The file store must outlive this object.
    DocumentFile(FileStore& files, std::string fullName, bool wasOpened)
        : files_(files), fullName_(std::move(fullName)), hasFile_(wasOpened) {}

    [[nodiscard]] const std::string& fullName() const { return fullName_; }
    [[nodiscard]] std::string name() const;

    /// Saves the document to its file. Raises kFileCouldNotBeSaved, also for a document without a file; an
    /// existing file stays whole on failure.
    void save(opc::Package& package);
    /// Saves the document to another file and takes its name. Raises kFileCouldNotBeSaved, also for a format
    /// that the engine does not write and for macros in a format that cannot contain them; then the document
    /// is unchanged.
    void saveAs(opc::Package& package, DocumentFamily family, int number, const std::string& fileName);

  private:
    void write(opc::Package& package, const std::string& fileName);

    FileStore& files_;
    std::string fullName_;
    bool hasFile_;
};

/// Returns the bytes of a file in a format that the engine writes. Raises the errors of DocumentFile::saveAs,
/// which name the given file.
std::string savedBytes(opc::Package& package, DocumentFamily family, int number, const std::string& fileName);

}  // namespace mergeloom::embedded
