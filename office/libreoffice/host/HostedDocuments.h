#pragma once

#include "office/libreoffice/session/LibreOfficeFiles.h"
#include "office/model/DocumentHost.h"
#include "office/model/excel/Application.h"
#include "office/model/word/Application.h"

#include <string>
#include <vector>

/// Questions about hosted documents that depend on their kind.
namespace mergeloom::libreoffice {

/// Returns the kind of document that a file holds; the given one when both kinds or neither have its
/// extension.
DocumentKind kindOf(const std::string& path, DocumentKind shown);
/// Returns the kind of a hosted document; Word's for none.
DocumentKind kindOf(const HostedDocument& hosted);

/// Returns the office's own object; null for no document.
DocumentReference componentOf(const HostedDocument& hosted);

/// Returns the format of a number, which depends on the kind of the document.
SaveFormat formatOf(const HostedDocument& hosted, int number);

/// Returns the open documents of both applications.
std::vector<HostedDocument> openDocuments(word::Application& word, excel::Application& excel);

/// Begin and end changes by the model, during which the user cannot change the document. Do nothing without a
/// document.
void beginEditing(const HostedDocument& hosted);
void endEditing(const HostedDocument& hosted);
/// Ends the input that a cell is taking.
void endInput(const HostedDocument& hosted);

/// Closes the document without saving it.
void close(const HostedDocument& hosted);

}  // namespace mergeloom::libreoffice
