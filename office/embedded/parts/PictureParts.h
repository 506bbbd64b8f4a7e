#pragma once

#include "office/opc/Package.h"
#include "office/opc/PictureFile.h"

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>

namespace mergeloom::embedded {

/// A removed relationship to a picture, and the picture if its part was removed too.
struct ReleasedPicture {
    std::string relationshipId;
    std::string relationshipType;
    std::string partName;
    std::string contentType;
    std::optional<std::string> bytes;
};

/// The picture parts of a package. Each picture is stored once, even if it is shown several times.
class PictureParts {
  public:
    /// The package must not be moved while this object exists.
    explicit PictureParts(opc::Package& package) : package_(package) {}

    /// Returns the id of a relationship from the document's part to a part that contains the picture. An
    /// existing part with the same bytes, and a relationship to it, are reused; otherwise they are added, as
    /// "media/imageN.ext" beside the document's part.
    std::string add(const std::string& documentPart, std::string bytes, const opc::PictureFile& picture);
    /// Does the same for a part whose pictures are in another folder; the folder ends in "/".
    std::string add(const std::string& documentPart, const std::string& mediaFolder, std::string bytes,
                    const opc::PictureFile& picture);

    /// Removes a relationship of a part to a picture, and the picture's part if no other relationship of the
    /// package leads to it.
    ReleasedPicture release(const std::string& documentPart, const std::string& relationshipId);
    /// Restores what release() removed; the relationship gets its former id, which is free.
    void restore(const std::string& documentPart, const ReleasedPicture& released);

  private:
    void readMedia();
    void remember(const std::string& partName);
    [[nodiscard]] std::string partWith(const std::string& bytes, const opc::PictureFile& picture) const;
    std::string addPart(const std::string& folder, std::string bytes, const opc::PictureFile& picture);
    void countUses();
    void readRelationships(const std::string& documentPart);
    std::string relationshipTo(const std::string& documentPart, const std::string& partName);

    opc::Package& package_;
    bool mediaRead_ = false;
    std::multimap<opc::PartDigest, std::string> parts_;
    std::set<std::string> stems_;  ///< keys of the parts without their extensions
    std::int64_t lastNumber_ = 0;
    std::map<std::pair<std::string, std::string>, std::string> relationshipIds_;  ///< by source and target
    std::set<std::string> sourcesRead_;  ///< keys of the parts whose relationships were read
    /// The number of relationships to a part, by its key; counted when the first one is removed.
    std::optional<std::map<std::string, std::int64_t>> uses_;
};

}  // namespace mergeloom::embedded
