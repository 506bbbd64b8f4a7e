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

/// A relationship to a picture that was taken out, and the picture where it went along.
struct ReleasedPicture {
    std::string relationshipId;
    std::string relationshipType;
    std::string partName;
    std::string contentType;
    std::optional<std::string> bytes;
};

/// The picture parts of a package, each picture once however often it is shown.
class PictureParts {
  public:
    /// The package must stay where it is as long as this lives.
    explicit PictureParts(opc::Package& package) : package_(package) {}

    /// The id of a relationship from the document's part to a part that holds the picture. A part of the
    /// package with the same bytes and a relationship to it are used again; otherwise they are added, as
    /// "media/imageN.ext" beside the document's part.
    std::string add(const std::string& documentPart, std::string bytes, const opc::PictureFile& picture);
    /// The same for a part whose pictures do not stand beside it; the folder ends in "/".
    std::string add(const std::string& documentPart, const std::string& mediaFolder, std::string bytes,
                    const opc::PictureFile& picture);

    /// Takes a relationship of a part to a picture out, and the picture's part when no relationship of the
    /// package leads to it any more.
    ReleasedPicture release(const std::string& documentPart, const std::string& relationshipId);
    /// Brings back what release took out, the relationship under its former id, which is free.
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
    std::set<std::string> sourcesRead_;  ///< the parts whose relationships were looked at, by their keys
    /// How many relationships lead to a part, by its key; counted when the first one is taken out.
    std::optional<std::map<std::string, std::int64_t>> uses_;
};

}  // namespace mergeloom::embedded
