#pragma once

#include "office/libreoffice/calls/CallPipe.h"
#include "office/libreoffice/session/Uno.h"

#include <com/sun/star/awt/Rectangle.hpp>
#include <com/sun/star/task/XJob.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <optional>
#include <string>
#include <vector>

namespace mergeloom::libreoffice {

/// The commands to the library: the name of the value with which its job is executed.
inline constexpr const char* kInsideConnect = "connect";    ///< with the folder of a CallListener
inline constexpr const char* kInsideServe = "serve";        ///< makes the main thread read requests
inline constexpr const char* kInsideDocument = "document";  ///< returns the document's number
/// Take the bytes of a file and a password, and return bytes. Decrypting returns nothing if the file is not
/// encrypted or the password is wrong.
inline constexpr const char* kInsideDecrypt = "decrypt";
inline constexpr const char* kInsideEncrypt = "encrypt";
/// A request with a workbook. Its result has the rectangles of NamedCells and a truth value.
inline constexpr const char* kInsideNamedCells = "namedCells";

/// The frames of the named cells of a workbook.
struct NamedCells {
    std::vector<css::awt::Rectangle> bounds;  ///< in the window of the workbook, in pixels
    bool isComplete;  ///< false if the places after the last change are not all known yet
};

/// Returns the path of the library that the office loads for the object model. It is in the folder of the
/// file that contains this function. Raises kNotAvailable if it is missing.
std::string insideLibrary();

/// The connection to our library inside the office's process, which executes requests on the office's main
/// thread. A request and its answer take about 20 microseconds. From the first request until rest(), or until
/// no request is received for a while, the main thread does nothing else, so the user cannot edit in between.
/// Members raise UNO's exceptions, and std::system_error if the office has ended.
class InsideLine {
  public:
    /// Makes the office load the library. Both processes must have access to the folder.
    InsideLine(const Reference<css::uno::XComponentContext>& office, const std::string& library,
               const std::string& folder);

    /// Returns the library's answer to a request.
    std::string ask(const std::string& request);
    /// Registers a document in the library and returns its number.
    std::int64_t handOver(const DocumentReference& document);
    /// Returns the package in an encrypted file of Open Packaging, or none for other files and wrong
    /// passwords.
    std::optional<std::string> decrypted(const std::string& file, const std::string& password);
    /// Returns the encrypted file of a package.
    std::string encrypted(const std::string& package, const std::string& password);
    /// Returns the rectangles of the named cells that the workbook's window shows. Takes some milliseconds;
    /// the next call continues a result that is not complete.
    NamedCells namedCells(const DocumentReference& workbook);
    /// Lets the main thread return to its own work.
    void rest();

  private:
    CallFrame receive();

    Reference<css::task::XJob> job_;
    CallPipe pipe_;
    bool isServed_ = false;  ///< as far as is known: it may have ended by itself
};

}  // namespace mergeloom::libreoffice
