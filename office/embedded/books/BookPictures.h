#pragma once

#include "office/embedded/books/BookPlaces.h"
#include "office/embedded/books/BookRenderer.h"
#include "office/embedded/parts/AddedParts.h"
#include "office/embedded/parts/LetterArchive.h"
#include "office/opc/Package.h"
#include "office/opc/XmlPart.h"

#include <cstddef>
#include <map>
#include <pugixml.hpp>
#include <set>
#include <string>
#include <vector>

namespace mergeloom::embedded {

/// The prefix of the names of pictures that are repeated with the rows of a table. A number follows it.
inline constexpr const char* kRepeatedPictureName = "_MergeloomPicture";

/// The pictures at the places of a workbook.
class BookPictures {
  public:
    /// Reads the drawings of the sheets and removes the repetitions of an earlier filling. The places must
    /// outlive it.
    BookPictures(const BookPlaces& places, WorkbookContent& content);

    /// Puts the pictures of the records into the drawings, which may be among the changed parts already.
    /// Returns the heights of the new pictures.
    PictureHeights render(const BookRenderer& renderer, const LetterArchive& archive, AddedParts& parts,
                          ChangedParts& changed);

    [[nodiscard]] const std::set<std::string>& remarks() const { return remarks_; }

  private:
    void restoreDrawing(opc::Package& package, const std::string& partName,
                        const std::vector<std::size_t>& numbers) const;
    [[nodiscard]] bool changes(const BookRenderer& renderer, std::size_t place) const;
    void renderPlace(const BookRenderer& renderer, std::size_t number, const opc::XmlPart& drawing,
                     AddedParts& parts, PictureHeights& heights);
    /// Returns the height of the new picture in points; 0 if the picture stays.
    double replace(pugi::xml_node anchor, const RecordControl* control, const std::string& drawing,
                   AddedParts& parts);
    const AddedPicture* pictureOf(const std::string& image, AddedParts& parts);

    const BookPlaces& places_;
    std::map<std::string, std::vector<std::size_t>> drawings_;  ///< the places with pictures by their parts
    std::set<std::string> remarks_;
};

}  // namespace mergeloom::embedded
