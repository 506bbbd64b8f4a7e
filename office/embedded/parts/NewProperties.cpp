#include "office/embedded/parts/NewProperties.h"

namespace mergeloom::embedded {

namespace {

constexpr const char* kCoreProperties = R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<cp:coreProperties xmlns:cp="http://schemas.openxmlformats.org/package/2006/metadata/core-properties"
 xmlns:dc="http://purl.org/dc/elements/1.1/">
<dc:title></dc:title><dc:creator></dc:creator><cp:revision>1</cp:revision>
</cp:coreProperties>
)";

constexpr const char* kExtendedProperties = R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<Properties xmlns="http://schemas.openxmlformats.org/officeDocument/2006/extended-properties">
<Application>Mergeloom</Application>
</Properties>
)";

}  // namespace

std::vector<SeedPart> newPropertyParts() {
    return {
        {"/docProps/core.xml", "application/vnd.openxmlformats-package.core-properties+xml", "/",
         "http://schemas.openxmlformats.org/package/2006/relationships/metadata/core-properties",
         kCoreProperties},
        {"/docProps/app.xml", "application/vnd.openxmlformats-officedocument.extended-properties+xml", "/",
         "http://schemas.openxmlformats.org/officeDocument/2006/relationships/extended-properties",
         kExtendedProperties},
    };
}

}  // namespace mergeloom::embedded
