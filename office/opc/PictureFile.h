#pragma once

#include "base/Units.h"
#include "office/opc/PictureHeader.h"

#include <string>
#include <string_view>

namespace mergeloom::opc {

/// What must be known of a picture file to put it into a document: PNG, JPEG, GIF and BMP files. The pixels
/// themselves are not looked at.
class PictureFile {
  public:
    /// The file's name serves the message. Raises kFileCouldNotBeRead when the bytes are no such picture or
    /// the header is damaged.
    static PictureFile read(std::string_view bytes, const std::string& fileName);

    [[nodiscard]] PictureFormat format() const { return header_.format; }
    /// How the pixels are to be turned and mirrored for showing (Exif 2.3, 4.6.4 A): 1 as stored; 3 by a half
    /// turn, 6 by a quarter turn clockwise, 8 by one counter-clockwise; 2, 4, 5 and 7 also mirrored.
    [[nodiscard]] int orientation() const { return header_.orientation; }

    /// The size that pixels and resolution give, before any turning; one EMU at least.
    [[nodiscard]] Emu naturalWidth() const;
    [[nodiscard]] Emu naturalHeight() const;

    [[nodiscard]] std::string contentType() const;  ///< "image/png"
    [[nodiscard]] std::string extension() const;    ///< "png"

  private:
    explicit PictureFile(const PictureHeader& header) : header_(header) {}
    /// 96 dots per inch when the file has no resolution or one without sense.
    [[nodiscard]] Resolution resolution() const;

    PictureHeader header_;
};

}  // namespace mergeloom::opc
