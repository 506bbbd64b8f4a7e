#pragma once

#include "office/embedded/package/Package.h"

#include <span>
#include <string>
#include <string_view>

namespace mergeloom::embedded {

/// A kind of file that the engine writes. Kinds of one family differ in nothing but the main part's content
/// type and in whether they may hold macros.
struct SaveFormat {
    int number = 0;  ///< by which SaveAs knows it
    std::string_view extension;
    std::string_view contentType;
    bool takesMacros = false;
};

/// The kinds of file for one kind of document.
struct SaveFormats {
    std::string_view document;  ///< what messages call it
    std::span<const SaveFormat> formats;

    /// Null for a format that the engine does not write.
    [[nodiscard]] const SaveFormat* find(int number) const;
};

/// Gives the main part the content type of a format. Raises kFileCouldNotBeSaved, and changes nothing, for a
/// format that the engine does not write and for macros in a format that has no place for them.
void setSaveFormat(Package& package, const SaveFormats& formats, int number, const std::string& fileName);

}  // namespace mergeloom::embedded
