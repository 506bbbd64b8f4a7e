#pragma once

namespace mergeloom {

/// The kinds of documents: Word's documents and Excel's workbooks.
enum class DocumentKind { Word, Excel };

}  // namespace mergeloom
