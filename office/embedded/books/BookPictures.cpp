#include "office/embedded/books/BookPictures.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "office/embedded/parts/PictureTurn.h"
#include "office/opc/XmlPart.h"

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <utility>

namespace mergeloom::embedded {

namespace {

constexpr double kEmuPerPoint = 12700;

pugi::xml_node findLocal(pugi::xml_node below, std::string_view name) {
    return below.find_node([&](pugi::xml_node node) { return opc::localName(node) == name; });
}

pugi::xml_node childLocal(pugi::xml_node parent, std::string_view name) {
    return parent.find_child([&](pugi::xml_node node) { return opc::localName(node) == name; });
}

std::string nameOf(pugi::xml_node anchor) {
    return findLocal(anchor, "cNvPr").attribute("name").value();
}

pugi::xml_node anchorNamed(pugi::xml_node root, const std::string& name) {
    return root.find_child([&](pugi::xml_node anchor) { return equalsIgnoringCase(nameOf(anchor), name); });
}

std::int64_t highestId(pugi::xml_node root) {
    std::int64_t highest = 1;
    root.find_node([&](pugi::xml_node node) {
        if (opc::localName(node) == "cNvPr")
            highest = std::max<std::int64_t>(highest, node.attribute("id").as_llong());
        return false;
    });
    return highest;
}

void moveRows(pugi::xml_node anchor, int rows) {
    for (const char* const end : {"from", "to"}) {
        pugi::xml_node row = childLocal(childLocal(anchor, end), "row");
        if (row) row.text().set(row.text().as_int() + rows);
    }
}

pugi::xml_attribute linkOf(pugi::xml_node anchor) {
    return findLocal(anchor, "blip").find_attribute([](pugi::xml_attribute attribute) {
        return std::string_view(attribute.name()).ends_with(":embed");
    });
}

void setSize(pugi::xml_node extent, std::int64_t width, std::int64_t height) {
    for (const auto& [name, value] : {std::pair("cx", width), {"cy", height}}) {
        extent.remove_attribute(name);
        extent.append_attribute(name).set_value(std::to_string(value).c_str());
    }
}

/// Ties a picture to its first cell alone, so that its size is its own.
void tieToOneCell(pugi::xml_node anchor) {
    if (opc::localName(anchor) != "twoCellAnchor") return;
    const std::string_view name = anchor.name();
    const std::string prefix(name.substr(0, name.find(':') + 1));
    anchor.insert_child_after((prefix + "ext").c_str(), childLocal(anchor, "from"));
    anchor.remove_child(childLocal(anchor, "to"));
    anchor.remove_attribute("editAs");
    anchor.set_name((prefix + "oneCellAnchor").c_str());
}

void setOrRemove(pugi::xml_node node, const char* name, const std::string& value) {
    node.remove_attribute(name);
    if (!value.empty()) node.prepend_attribute(name).set_value(value.c_str());
}

/// Moves the frame of a picture that lies on its side, so that what is shown begins at the place.
void shiftFrame(pugi::xml_node anchor, std::int64_t right, std::int64_t down) {
    const pugi::xml_node from = childLocal(anchor, "from");
    for (const auto& [name, by] : {std::pair("colOff", right), {"rowOff", down}}) {
        pugi::xml_node offset = childLocal(from, name);
        offset.text().set(std::max<std::int64_t>(0, offset.text().as_llong() + by));
    }
}

}  // namespace

BookPictures::BookPictures(const BookPlaces& places, WorkbookContent& content) : places_(places) {
    for (std::size_t number = 0; number < places.places.size(); ++number) {
        const BookPlace& place = places.places[number];
        if (!place.isPicture) continue;
        const std::string& sheet = content.workbook().sheets()[place.sheet].partName;
        drawings_[content.package().relatedPart(sheet, "drawing")].push_back(number);
    }
    for (const auto& [partName, numbers] : drawings_)
        restoreDrawing(content.package(), partName, numbers);
}

/// Removes repetitions and shows the picture of a table that had no records.
void BookPictures::restoreDrawing(opc::Package& package, const std::string& partName,
                                  const std::vector<std::size_t>& numbers) const {
    const auto part = opc::XmlPart::parse(package.readPart(partName), partName, package.fileName());
    pugi::xml_node root = part->root();
    bool isChanged = false;
    for (pugi::xml_node anchor = root.first_child(); anchor;) {
        const pugi::xml_node next = anchor.next_sibling();
        const bool isRepetition = nameOf(anchor).starts_with(kRepeatedPictureName);
        if (isRepetition) root.remove_child(anchor);
        isChanged = isChanged || isRepetition;
        anchor = next;
    }
    for (const std::size_t number : numbers) {
        const BookPlace& place = places_.places[number];
        const bool wasHidden =
            std::ranges::any_of(places_.hiddenRows[place.sheet],
                                [&](const excel::CellArea& rows) { return rows.contains(place.cell); });
        if (!wasHidden) continue;
        findLocal(anchorNamed(root, place.name), "cNvPr").remove_attribute("hidden");
        isChanged = true;
    }
    if (isChanged) package.writePart(partName, part->toXml());
}

bool BookPictures::changes(const BookRenderer& renderer, std::size_t number) const {
    const BookPlace& place = places_.places[number];
    const int copies = renderer.copiesOf(place);
    if (copies != 1) return true;
    const RecordControl* const control = renderer.controlOf(place, 0);
    return control != nullptr && !control->image.empty();
}

PictureHeights BookPictures::render(const BookRenderer& renderer, const LetterArchive& archive,
                                    AddedParts& parts, ChangedParts& changed) {
    PictureHeights heights;
    for (const auto& [partName, numbers] : drawings_) {
        const bool isChanged =
            std::ranges::any_of(numbers, [&](std::size_t number) { return changes(renderer, number); });
        if (!isChanged) continue;
        const std::string entry = entryNameOf(partName);
        const auto found = changed.find(entry);
        const auto part = opc::XmlPart::parse(found == changed.end() ? archive.read(entry) : found->second,
                                              partName, "the template");
        for (const std::size_t number : numbers)
            renderPlace(renderer, number, *part, parts, heights);
        changed[entry] = part->toXml();
    }
    return heights;
}

void BookPictures::renderPlace(const BookRenderer& renderer, std::size_t number, const opc::XmlPart& drawing,
                               AddedParts& parts, PictureHeights& heights) {
    const BookPlace& place = places_.places[number];
    pugi::xml_node root = drawing.root();
    const pugi::xml_node first = anchorNamed(root, place.name);
    const int copies = renderer.copiesOf(place);
    if (copies == 0) {
        pugi::xml_node identity = findLocal(first, "cNvPr");
        setOrRemove(identity, "hidden", "");
        identity.append_attribute("hidden").set_value("1");
    }
    std::vector<pugi::xml_node> anchors{first};
    std::int64_t id = highestId(root);
    for (int copy = 1; copy < copies; ++copy) {
        const BookTable& table = places_.tables[*place.table];
        anchors.push_back(root.insert_copy_after(first, anchors.back()));
        moveRows(anchors.back(), copy * (table.lastRow - table.firstRow + 1));
        pugi::xml_node identity = findLocal(anchors.back(), "cNvPr");
        identity.attribute("id").set_value(std::to_string(++id).c_str());
        identity.attribute("name").set_value((kRepeatedPictureName + std::to_string(id)).c_str());
    }
    for (int copy = 0; copy < copies; ++copy) {
        const double height = replace(anchors[static_cast<std::size_t>(copy)],
                                      renderer.controlOf(place, copy), drawing.partName(), parts);
        if (height > 0) heights[{number, copy}] = height;
    }
}

const AddedPicture* BookPictures::pictureOf(const std::string& image, AddedParts& parts) {
    try {
        const AddedPicture* const picture = parts.add(image);
        if (picture == nullptr) remarks_.insert("There is no picture '" + image + "'.");
        return picture;
    } catch (const AutomationError& error) {
        // One bad picture must not end a batch, so the picture of the template is kept.
        remarks_.insert(error.description());
        return nullptr;
    }
}

double BookPictures::replace(pugi::xml_node anchor, const RecordControl* control, const std::string& drawing,
                             AddedParts& parts) {
    if (control == nullptr || control->image.empty()) return 0;
    const AddedPicture* const picture = pictureOf(control->image, parts);
    const pugi::xml_node transform = findLocal(anchor, "xfrm");
    if (picture == nullptr || !linkOf(anchor) || !transform) return 0;
    const PictureTurn turn = pictureTurn(picture->file.orientation());
    const bool wasSideways = (transform.attribute("rot").as_llong() / kQuarterTurn) % 2 != 0;
    const pugi::xml_node ownExtent = childLocal(transform, "ext");
    const std::int64_t width = ownExtent.attribute(wasSideways ? "cy" : "cx").as_llong();
    const double ratio = static_cast<double>(picture->file.naturalHeight().value) /
                         static_cast<double>(picture->file.naturalWidth().value);
    const auto height = std::max<std::int64_t>(
        1, static_cast<std::int64_t>(static_cast<double>(width) * (turn.isSideways() ? 1 / ratio : ratio)));
    tieToOneCell(anchor);
    // The frame of a picture on its side is as wide as the picture is high.
    for (const pugi::xml_node extent : {childLocal(anchor, "ext"), ownExtent}) {
        if (extent) turn.isSideways() ? setSize(extent, height, width) : setSize(extent, width, height);
    }
    if (turn.isSideways() && !wasSideways) shiftFrame(anchor, (width - height) / 2, (height - width) / 2);
    linkOf(anchor).set_value(parts.link(drawing, *picture).c_str());
    setOrRemove(transform, "flipH", turn.isMirrored ? "1" : "");
    setOrRemove(transform, "flipV", "");
    setOrRemove(transform, "rot", turn.quarters == 0 ? "" : std::to_string(turn.quarters * kQuarterTurn));
    if (const pugi::xml_node crop = findLocal(anchor, "srcRect")) crop.parent().remove_child(crop);
    return static_cast<double>(height) / kEmuPerPoint;
}

}  // namespace mergeloom::embedded
