#pragma once

#include "office/embedded/package/Package.h"
#include "office/embedded/parts/PictureFile.h"

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <utility>

namespace mergeloom::embedded {

/// The picture parts of a package, each picture once however often it is shown.
class PictureParts {
  public:
    /// The package must stay where it is as long as this lives.
    explicit PictureParts(Package& package) : package_(package) {}

    /// The id of a relationship from the document's part to a part that holds the picture. A part of the
    /// package with the same bytes and a relationship to it are used again; otherwise they are added, as
    /// "media/imageN.ext" beside the document's part.
    std::string add(const std::string& documentPart, std::string bytes, const PictureFile& picture);

  private:
    void readMedia();
    void remember(const std::string& partName);
    [[nodiscard]] std::string partWith(const std::string& bytes, const PictureFile& picture) const;
    std::string addPart(const std::string& folder, std::string bytes, const PictureFile& picture);
    std::string relationshipTo(const std::string& documentPart, const std::string& partName);

    Package& package_;
    bool mediaRead_ = false;
    std::multimap<PartDigest, std::string> parts_;
    std::set<std::string> stems_;  ///< keys of the parts without their extensions
    std::int64_t lastNumber_ = 0;
    std::map<std::pair<std::string, std::string>, std::string> relationshipIds_;  ///< by source and target
};

}  // namespace mergeloom::embedded
