#pragma once

namespace mergeloom::libreoffice {

/// Whose part the office plays for a document: it writes texts and workbooks with one program.
enum class OfficePart { Word, Excel };

}  // namespace mergeloom::libreoffice
