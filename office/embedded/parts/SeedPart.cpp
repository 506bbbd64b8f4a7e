#include "office/embedded/parts/SeedPart.h"

namespace mergeloom::embedded {

opc::Package seededPackage(const std::vector<SeedPart>& parts) {
    opc::Package package = opc::Package::empty();
    for (const SeedPart& part : parts) {
        package.addPart(part.name, part.contentType, part.xml);
        package.relationshipsOf(part.source).addPart(part.relationshipType, part.name);
    }
    return package;
}

}  // namespace mergeloom::embedded
