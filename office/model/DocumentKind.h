#pragma once

namespace mergeloom {

/// The kinds of documents: what Word edits, and Excel's workbooks.
enum class DocumentKind { Word, Excel };

}  // namespace mergeloom
