#pragma once

#include "base/Units.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace mergeloom::opc {

/// Dots per inch, rounded to whole numbers, as users mean them: a file that counts dots per metre cannot
/// state 96 dots per inch, only 3780 per metre.
struct Resolution {
    std::int64_t horizontal = 0;
    std::int64_t vertical = 0;
};

/// The contents of a picture file's header.
struct PictureHeader {
    std::int64_t width = 0;  ///< in pixels as they are stored, before any rotation
    std::int64_t height = 0;
    std::optional<Resolution> resolution = {};  ///< none if the file does not state it
    int orientation = 1;  ///< Exif 2.3, 4.6.4 A: 1 as stored, 2 to 8 rotated or mirrored
};

/// A PNG, JPEG, GIF or BMP file that is to be inserted into a document. Its pixels are not decoded.
class PictureFile {
  public:
    /// Reads the header. Raises kFileCouldNotBeRead, with the file's name, for other files and for a damaged
    /// header.
    static PictureFile read(std::string_view bytes, const std::string& fileName);

    /// Returns how the pixels are rotated and mirrored on display (Exif 2.3, 4.6.4 A): 1 as stored; 3 by a
    /// half turn, 6 by a quarter turn clockwise, 8 by one counter-clockwise; 2, 4, 5 and 7 also mirrored.
    [[nodiscard]] int orientation() const { return header_.orientation; }

    /// Return the size that results from pixels and resolution, before any rotation; at least one EMU.
    [[nodiscard]] Emu naturalWidth() const;
    [[nodiscard]] Emu naturalHeight() const;

    [[nodiscard]] const std::string& contentType() const { return contentType_; }  ///< "image/png"
    [[nodiscard]] const std::string& extension() const { return extension_; }      ///< "png"

  private:
    PictureFile(const PictureHeader& header, std::string contentType, std::string extension)
        : header_(header), contentType_(std::move(contentType)), extension_(std::move(extension)) {}
    /// Returns 96 dots per inch for a file without a plausible resolution.
    [[nodiscard]] Resolution resolution() const;

    PictureHeader header_;
    std::string contentType_;
    std::string extension_;
};

}  // namespace mergeloom::opc
