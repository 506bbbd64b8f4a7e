#pragma once

#include "base/FileStore.h"
#include "office/model/DocumentHost.h"
#include "office/model/FileConverter.h"
#include "office/model/excel/Application.h"
#include "office/model/letters/LetterTemplate.h"
#include "office/model/word/Application.h"

#include <memory>
#include <string>

namespace mergeloom {

/// The offices that implement the object model.
enum class OfficeKind {
    Embedded,
    LibreOffice,
    Com,  ///< an installed Word or Excel, on Windows
};

/// Returns the kind of an installed office on this system: Com on Windows, otherwise LibreOffice.
OfficeKind installedOffice();

/// Starts an office that implements Word's object model. The file store has to outlive it; an installed Word
/// reads and writes files itself, and its calls are traced to a file if one is named. Raises kNotAvailable,
/// with a sentence that names the choices, for an office that this program does not have.
word::ApplicationPtr makeWordApplication(OfficeKind kind, FileStore& files,
                                         const std::string& traceFile = {});
/// Starts an office that implements Excel's object model. Errors as for Word.
excel::ApplicationPtr makeExcelApplication(OfficeKind kind, FileStore& files,
                                           const std::string& traceFile = {});

/// Opens a Word document whose places are to be filled by the embedded office. The file store has to outlive
/// it. Raises kFileCouldNotBeRead for a file that is no Word document or cannot be edited safely.
std::unique_ptr<letters::LetterTemplate> openLetterTemplate(FileStore& files, const std::string& path);

/// Opens a workbook in the same way.
std::unique_ptr<letters::LetterTemplate> openBookTemplate(FileStore& files, const std::string& path);

/// Open the bytes of a document or of a workbook in the same way; the path is only named in errors.
std::unique_ptr<letters::LetterTemplate> openLetterTemplate(FileStore& files, const std::string& path,
                                                            std::string bytes);
std::unique_ptr<letters::LetterTemplate> openBookTemplate(FileStore& files, const std::string& path,
                                                          std::string bytes);

/// Returns a converter that uses an installed LibreOffice, for formats that the embedded office does not
/// write. It loads nothing before its first use; without a LibreOffice it writes no format. The file store
/// has to outlive it.
std::unique_ptr<FileConverter> makeFileConverter(FileStore& files);

/// Starts LibreOffice inside a window of this program, which takes about a second. The first document is of
/// the given kind; the host can show the other kind, too. The file store and the listener have to outlive the
/// host. Raises kNotAvailable, with a sentence that says what to install, when it cannot be started.
std::unique_ptr<DocumentHost> makeDocumentHost(FileStore& files, const HostWindow& window, DocumentKind kind,
                                               HostListener& listener);

}  // namespace mergeloom
