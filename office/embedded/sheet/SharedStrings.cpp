#include "office/embedded/sheet/SharedStrings.h"

#include "office/embedded/sheet/XmlScanner.h"
#include "office/embedded/sheet/XmlText.h"
#include "office/opc/UnreadableFile.h"

#include <limits>
#include <utility>

namespace mergeloom::embedded {

SharedStrings::SharedStrings(std::string xml, std::string partName, std::string fileName)
    : xml_(toUtf8Xml(std::move(xml), partName, fileName)),
      partName_(std::move(partName)),
      fileName_(std::move(fileName)) {
    try {
        readOffsets();
    } catch (const BadXml& problem) {
        opc::raiseUnreadable(fileName_, "its part " + opc::quoted(partName_) + " " + problem.what());
    }
}

void SharedStrings::readOffsets() {
    if (xml_.size() > std::numeric_limits<std::uint32_t>::max()) throw BadXml("is too large");
    XmlScanner scanner(xml_);
    if (!scanner.next() || localNameOf(scanner.name()) != "sst") throw BadXml("holds no shared strings");
    prefix_ = prefixOf(scanner.name());
    while (scanner.next()) {
        if (scanner.depth() == 1 && scanner.kind() != TagKind::End) throw BadXml("has more than one root");
        if (scanner.depth() != 2 || !isElement(scanner.name(), prefix_, "si")) continue;
        offsets_.push_back(static_cast<std::uint32_t>(scanner.begin()));
        scanner.skipElement();
    }
}

std::string SharedStrings::text(std::size_t index) const {
    if (index >= offsets_.size()) {
        opc::raiseUnreadable(fileName_, "it refers to the shared text " + std::to_string(index) +
                                            ", but its part " + opc::quoted(partName_) + " holds only " +
                                            std::to_string(offsets_.size()));
    }
    const std::size_t begin = offsets_[index];
    XmlScanner scanner(std::string_view(xml_).substr(begin));
    scanner.next();
    scanner.skipElement();
    return richText(std::string_view(xml_).substr(begin, scanner.end()), prefix_);
}

}  // namespace mergeloom::embedded
