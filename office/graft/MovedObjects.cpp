#include "office/graft/MovedObjects.h"

#include "base/Text.h"
#include "office/embedded/sheet/WorkbookPart.h"
#include "office/opc/XmlPart.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <ranges>

namespace mergeloom::graft {

namespace {

using Places = std::vector<ObjectPlace>;

bool isAnchor(pugi::xml_node node) {
    return opc::localName(node).ends_with("Anchor");
}

/// Controls have alternative content around their anchors.
pugi::xml_node anchorIn(pugi::xml_node child) {
    return isAnchor(child) ? child : child.find_node(isAnchor);
}

bool isUnmoved(const ExportedSheet& former, const ExportedSheet& now, const Places& original,
               std::size_t object) {
    if (isInSamePlace(former.places[object], now.places[object])) return true;
    // The office reads other objects than the file has if their numbers differ.
    return original.size() == former.places.size() && haveSameCells(original[object], now.places[object]);
}

/// Returns true if the object is in the place that another export has for it.
bool isInPlace(const Places& places, std::size_t object, const ObjectPlace& proof) {
    return object < places.size() && isInSamePlace(places[object], proof);
}

}  // namespace

std::vector<ObjectPlace> placesInOriginal(const std::string& bytes, const std::string& fileName,
                                          const std::string& sheetName) {
    opc::Package package = opc::Package::read(bytes, fileName);
    embedded::UndoLog undo;
    const embedded::WorkbookPart workbook(package, undo);
    const auto sheet = std::ranges::find_if(workbook.sheets(), [&](const embedded::SheetEntry& entry) {
        return equalsIgnoringCase(entry.name, sheetName);
    });
    const std::string name =
        sheet == workbook.sheets().end() ? "" : package.relatedPart(sheet->partName, "drawing");
    if (name.empty()) return {};
    const auto drawing = opc::XmlPart::parse(package.readPart(name), name, fileName);
    Places places;
    for (const pugi::xml_node child : drawing->root().children())
        if (const pugi::xml_node anchor = anchorIn(child)) places.push_back(placeOf(anchor));
    return places;
}

bool hasMovedObjects(const ExportedSheet& former, const ExportedSheet& now,
                     const std::vector<ObjectPlace>& original) {
    if (now.places.size() < former.places.size() || now.boxes.size() != former.boxes.size()) return true;
    for (std::size_t object = 0; object < former.places.size(); ++object)
        if (!isUnmoved(former, now, original, object)) return true;
    return !std::ranges::equal(former.boxes, now.boxes, isInSamePlace);
}

bool areInPlaces(const ExportedSheet& proof, const KnownPlaces& known) {
    const Places& edited = known.edited.places;
    const auto isObjectInPlace = [&](std::size_t object) {
        const ObjectPlace& place = proof.places[object];
        if (isInPlace(edited, object, place)) return true;
        if (known.again != nullptr && isInPlace(known.again->places, object, place)) return true;
        return known.former != nullptr && isInPlace(known.former->places, object, place) &&
               object < edited.size() && startAtSameCell(edited[object], place);
    };
    const auto isBoxInPlace = [&](std::size_t box) {
        return std::ranges::any_of(
            std::array{&known.edited, known.again, known.former}, [&](const ExportedSheet* sheet) {
                return sheet != nullptr && isInPlace(sheet->boxes, box, proof.boxes[box]);
            });
    };
    return std::ranges::all_of(std::views::iota(std::size_t{0}, proof.places.size()), isObjectInPlace) &&
           std::ranges::all_of(std::views::iota(std::size_t{0}, proof.boxes.size()), isBoxInPlace);
}

}  // namespace mergeloom::graft
