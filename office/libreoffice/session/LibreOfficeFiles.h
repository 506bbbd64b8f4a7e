#pragma once

#include "base/FileStore.h"
#include "office/libreoffice/session/DocumentPasswords.h"
#include "office/libreoffice/session/OfficeConnection.h"
#include "office/libreoffice/session/RecordPages.h"
#include "office/libreoffice/session/ScratchPaths.h"
#include "office/model/DocumentHost.h"
#include "office/model/excel/Enumerations.h"
#include "office/model/word/Enumerations.h"

#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/frame/XFrame.hpp>
#include <com/sun/star/io/XInputStream.hpp>
#include <com/sun/star/uno/Any.hxx>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace mergeloom {
struct OfficeFilter;
}

namespace mergeloom::libreoffice {

/// A format in which Word or Excel saves. Both enumerations convert to it.
struct SaveFormat {
    SaveFormat(word::WdSaveFormat format) : kind(DocumentKind::Word), number(static_cast<int>(format)) {}
    SaveFormat(excel::XlFileFormat format) : kind(DocumentKind::Excel), number(static_cast<int>(format)) {}

    DocumentKind kind;
    int number;
};

/// Makes an empty frame for the next document.
using FrameSource = std::function<Reference<css::frame::XFrame>()>;

/// Returns the bytes that replace the file, given those that the office wrote. Raises an error to keep the
/// former file.
using Revision = std::function<std::string(std::string bytes)>;

/// Takes documents from a file store into an office and back. The office works on copies in a folder that is
/// removed with its process: it locks nothing, changes only the files that it is given to write, and a file
/// is replaced by its whole result or not at all. Documents are hidden unless frames are made for them,
/// macros never run, links are not updated, and every question is refused. A document that was opened with a
/// password is written with it in every format that has passwords, and no file in between shows its content
/// to others.
class LibreOfficeFiles {
  public:
    /// The file store must outlive this; the folder is removed with the office.
    LibreOfficeFiles(OfficeConnection& connection, FileStore& files, std::string workFolder)
        : connection_(connection), files_(files), scratch_(std::move(workFolder)) {}

    /// Shows documents in frames from now on, each in one of its own.
    void showIn(FrameSource frames) { frames_ = std::move(frames); }
    /// Sets the access with which files are opened from now on; the first is Edit.
    void setAccess(FileAccess access) { access_ = access; }
    /// Sets the password with which files are opened from now on; empty for none.
    void setPassword(const std::string& password) { password_ = password; }
    /// Returns true if users see and edit the documents.
    [[nodiscard]] bool showsDocuments() const { return frames_ != nullptr; }
    /// Returns an empty document with LibreOffice's own defaults.
    DocumentReference create(DocumentKind kind);
    /// Opens the file; a template opens as the template itself. Raises kFileCouldNotBeRead with a sentence
    /// that names the file when it is missing, damaged or not of the kind, and PasswordRequired when the
    /// password is not the file's. The document's URL in the office is that of the copy.
    DocumentReference open(const std::string& path, DocumentKind kind);
    /// Saves the document and clears its modified flag, unless the user changes it during the save; its own
    /// URL does not change. Raises kNotAvailable for a format that the office does not write, and
    /// kFileCouldNotBeSaved for macros in a format without them and for other failures, with sentences that
    /// name the file. Errors of the revision pass through; after DifferingCopy the document is written again
    /// if the user changed it before the comparison. Encrypts the result of the revision. A document that is
    /// saved in a format without passwords loses its password.
    void save(const DocumentReference& document, const std::string& path, SaveFormat format,
              const Revision& revise);
    /// Writes a copy of the document in the format. Does not change the document or its modified flag. Raises
    /// the same errors as save, except about macros, which the document keeps.
    void exportCopy(const DocumentReference& document, const std::string& path, SaveFormat format);
    /// Writes pages of the document to a PDF file, which is safe after FileStore::finishBatch. Raises the
    /// same errors.
    void exportPages(const DocumentReference& document, const std::string& path, SaveFormat format,
                     const PageRange& pages);
    /// Returns the document's bytes in the format and writes nothing beside the user's file. Does not change
    /// the document or its modified flag. Raises the same errors as exportCopy.
    std::string exportedBytes(const DocumentReference& document, const std::string& path, SaveFormat format);
    /// Returns true if the document has a password and files of the format have none.
    bool losesPassword(const DocumentReference& document, SaveFormat format);
    /// Returns the content of a file, decrypted with the document's password. Files of other formats than
    /// Open Packaging are returned unchanged. Raises kFileCouldNotBeRead.
    std::string plainBytes(const DocumentReference& document, const std::string& path);
    /// Returns the file from which the document was read as OfficePackage takes it: its URL, or a stream of
    /// the package in an encrypted file. Returns nothing for a new document.
    css::uno::Any packageOf(const DocumentReference& document);
    /// Returns the document's password; empty for none.
    [[nodiscard]] std::string passwordOf(const DocumentReference& document) const {
        return passwords_.of(document);
    }
    /// Returns true if the document has changes that were neither saved nor kept. Must be called within
    /// OfficeConnection::call.
    [[nodiscard]] bool hasChangesToKeep(const DocumentReference& document) const;
    /// Writes a copy of the document in the office's own format, for a later start. Does not change the
    /// document or its modified flag. Raises kFileCouldNotBeSaved with a sentence that names the file.
    void keepCopy(const DocumentReference& document, const std::string& path);
    /// Writes a copy of the document to a path on the disk. Does not change the document or its modified
    /// flag. Must be called within OfficeConnection::call.
    static void storeCopy(const DocumentReference& document, const std::string& path,
                          std::vector<css::beans::PropertyValue> properties);
    /// Opens the bytes that are to be written to a path, hidden; errors as for open. The password is used
    /// only for encrypted bytes.
    DocumentReference openCopy(const std::string& path, const std::string& bytes, DocumentKind kind,
                               const std::string& password);
    /// Reads the bytes in a hidden document as if they came from the source, which is the path of a file or
    /// of another office's copy, and returns the office's export of it as if written to the path. So relative
    /// links have the same targets. The files in between are encrypted with the password; neither these bytes
    /// nor the result are. Raises the errors of open and exportCopy.
    std::string exportOf(const std::string& source, const std::string& bytes, const std::string& path,
                         SaveFormat format, const std::string& password);
    /// Returns the path that an open document has in the office.
    std::string sourceOf(const DocumentReference& document);
    /// Opens the bytes of a file of that name for reading only, in a frame of the source and without bars;
    /// errors as for open.
    DocumentReference showCopy(const std::string& name, const std::string& bytes, DocumentKind kind,
                               const FrameSource& frames);
    /// Closes without saving and removes the document's copy. Does nothing when it is closed already.
    void close(const DocumentReference& document);

  private:
    DocumentReference load(const std::string& path, const std::string& source, const std::string& bytes,
                           DocumentKind kind, const FrameSource& frames,
                           const std::vector<css::beans::PropertyValue>& more);
    DocumentReference loadFrom(const std::string& path, const std::string& source,
                               const std::optional<std::string>& content, DocumentKind kind,
                               const FrameSource& frames, const std::vector<css::beans::PropertyValue>& more);
    [[nodiscard]] bool isOpenedInPlace(const std::string& source, const std::string& bytes) const;
    Reference<css::io::XInputStream> streamOf(const std::string& path, const std::string& content);
    [[nodiscard]] DocumentReference loadFrom(const std::string& url,
                                             std::vector<css::beans::PropertyValue> properties,
                                             const FrameSource& frames);
    [[nodiscard]] std::string copyOf(const std::string& path, const std::string& bytes);
    void check(const DocumentReference& document, const std::string& path, DocumentKind kind);
    std::string pathToWrite(const DocumentReference& document, const std::string& path);
    void write(const DocumentReference& document, const std::string& path, const OfficeFilter& filter,
               SaveFormat format, const Revision& revise);
    std::string exported(const DocumentReference& document, const std::string& path, SaveFormat format,
                         const std::vector<css::beans::PropertyValue>& properties);
    void store(const DocumentReference& document, const std::string& path, const std::string& copy,
               const OfficeFilter& filter, std::vector<css::beans::PropertyValue> properties = {});

    OfficeConnection& connection_;
    FileStore& files_;
    ScratchPaths scratch_;
    FrameSource frames_;
    FileAccess access_ = FileAccess::Edit;
    std::string password_;
    DocumentPasswords passwords_;
    bool hasKeptLastCopy_ = true;
    std::vector<css::beans::PropertyValue> pdfOptions_;
};

/// Closes a document at the end of its life.
class OpenDocument {
  public:
    OpenDocument(LibreOfficeFiles& files, const DocumentReference& document)
        : files_(files), document_(document) {}
    OpenDocument(const OpenDocument&) = delete;
    OpenDocument& operator=(const OpenDocument&) = delete;
    ~OpenDocument() { files_.close(document_); }

    [[nodiscard]] const DocumentReference& get() const { return document_; }

  private:
    LibreOfficeFiles& files_;
    DocumentReference document_;
};

}  // namespace mergeloom::libreoffice
