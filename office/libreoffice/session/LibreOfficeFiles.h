#pragma once

#include "base/FileStore.h"
#include "office/libreoffice/session/OfficeConnection.h"
#include "office/libreoffice/session/ScratchPaths.h"
#include "office/model/DocumentKind.h"
#include "office/model/excel/Enumerations.h"
#include "office/model/word/Enumerations.h"

#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/frame/XFrame.hpp>
#include <com/sun/star/io/XInputStream.hpp>
#include <com/sun/star/lang/XComponent.hpp>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace mergeloom {
struct OfficeFilter;
}

namespace mergeloom::libreoffice {

using DocumentReference = Reference<css::lang::XComponent>;

/// Makes an empty frame for the next document.
using FrameSource = std::function<Reference<css::frame::XFrame>()>;

/// What is still done with the bytes that were written before they take their place: gives those that do, and
/// raises what keeps the former file.
using Revision = std::function<std::string(std::string bytes)>;

/// The way of documents between a file store and an office.
///
/// The office works on copies in a folder that goes with its process: it locks nothing, changes nothing that
/// it was not told to, and what it writes reaches its place whole or not at all. Documents are without a
/// window unless frames are made for them, macros never run, links are not updated, and every question is
/// declined.
class LibreOfficeFiles {
  public:
    /// The file store has to outlive this, the folder is the office's.
    LibreOfficeFiles(OfficeConnection& connection, FileStore& files, std::string workFolder)
        : connection_(connection), files_(files), scratch_(std::move(workFolder)) {}

    /// Documents are shown in frames from here on, one in each.
    void showIn(FrameSource frames) { frames_ = std::move(frames); }
    /// Whether users see documents, and change them.
    [[nodiscard]] bool showsDocuments() const { return frames_ != nullptr; }
    /// An empty document of LibreOffice's own making.
    DocumentReference create(DocumentKind kind);
    /// Raises kFileCouldNotBeRead with a sentence that names the file when it is missing, damaged, protected
    /// by a password or not of the kind. A template opens as the template itself. Its URL in the office is
    /// that of the copy.
    DocumentReference open(const std::string& path, DocumentKind kind);
    /// Raises kNotAvailable for a format that the office does not write, kFileCouldNotBeSaved for macros in a
    /// format that has no place for them and for other failures, with sentences that name the file. The
    /// document's own URL does not change and its mark of changes stays. Errors of the revision pass through.
    void save(const DocumentReference& document, const std::string& path, word::WdSaveFormat format,
              const Revision& revise);
    void save(const DocumentReference& document, const std::string& path, excel::XlFileFormat format,
              const Revision& revise);
    /// Opens the bytes that a path is to get, without showing them; errors as for open.
    DocumentReference openCopy(const std::string& path, const std::string& bytes, DocumentKind kind);
    /// Closes without saving and forgets the document's copy. One that is closed already is left alone.
    void close(const DocumentReference& document);

  private:
    DocumentReference load(const std::string& path, const std::string& source, const std::string& bytes,
                           DocumentKind kind, const FrameSource& frames);
    Reference<css::io::XInputStream> streamOf(const std::string& path, const std::string& content);
    [[nodiscard]] DocumentReference loadFrom(const std::string& url,
                                             std::vector<css::beans::PropertyValue> properties,
                                             const FrameSource& frames);
    [[nodiscard]] std::string copyOf(const std::string& path, const std::string& bytes);
    void check(const DocumentReference& document, const std::string& path, DocumentKind kind);
    std::string placeOfWriting(const DocumentReference& document, const std::string& path);
    void write(const DocumentReference& document, const std::string& path, const OfficeFilter& filter,
               const Revision& revise);

    OfficeConnection& connection_;
    FileStore& files_;
    ScratchPaths scratch_;
    FrameSource frames_;
};

/// A document that is closed whatever becomes of the work with it.
class OpenDocument {
  public:
    OpenDocument(LibreOfficeFiles& files, DocumentReference document)
        : files_(files), document_(std::move(document)) {}
    OpenDocument(const OpenDocument&) = delete;
    OpenDocument& operator=(const OpenDocument&) = delete;
    ~OpenDocument() { files_.close(document_); }

    [[nodiscard]] const DocumentReference& get() const { return document_; }

  private:
    LibreOfficeFiles& files_;
    DocumentReference document_;
};

}  // namespace mergeloom::libreoffice
