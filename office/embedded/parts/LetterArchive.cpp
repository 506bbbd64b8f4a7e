#include "office/embedded/parts/LetterArchive.h"

#include "office/opc/PartName.h"
#include "office/opc/ZipWriter.h"

#include <algorithm>
#include <utility>

namespace mergeloom::embedded {

LetterArchive::LetterArchive(std::string bytes, opc::Conformance conformance)
    : bytes_(std::make_unique<const std::string>(std::move(bytes))),
      reader_(*bytes_, "the template"),
      conformance_(conformance) {}

const opc::ZipEntry* LetterArchive::find(std::string_view entryName) const {
    const auto found = std::ranges::find(reader_.entries(), entryName, &opc::ZipEntry::name);
    return found == reader_.entries().end() ? nullptr : &*found;
}

void LetterArchive::write(ByteSink& sink, ChangedParts& changed) const {
    opc::ZipWriter writer(sink);
    for (const opc::ZipEntry& entry : reader_.entries()) {
        const auto found = changed.find(entry.name);
        if (found == changed.end()) {
            writer.copy(entry);
        } else {
            writer.add(entry.name, opc::pack(std::move(found->second), opc::packingOf(entry.name)));
            changed.erase(found);
        }
    }
    for (auto& [name, content] : changed)
        writer.add(name, opc::pack(std::move(content), opc::packingOf(name)));
    writer.finish(reader_.comment());
}

std::string entryNameOf(std::string_view partName) {
    return opc::entryNameOfPart(std::string(partName));
}

}  // namespace mergeloom::embedded
