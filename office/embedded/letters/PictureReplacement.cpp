#include "office/embedded/letters/PictureReplacement.h"

#include "office/embedded/parts/PictureTurn.h"
#include "office/opc/XmlPart.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

namespace mergeloom::embedded {

namespace {

pugi::xml_node findLocal(pugi::xml_node below, std::string_view name) {
    return below.find_node([&](pugi::xml_node node) { return opc::localName(node) == name; });
}

pugi::xml_attribute linkOf(pugi::xml_node drawing) {
    const pugi::xml_node blip = findLocal(drawing, "blip");
    return blip.find_attribute(
        [](pugi::xml_attribute attribute) { return std::string_view(attribute.name()).ends_with(":embed"); });
}

void setExtent(pugi::xml_node extent, std::int64_t width, std::int64_t height) {
    extent.attribute("cx").set_value(std::to_string(width).c_str());
    extent.attribute("cy").set_value(std::to_string(height).c_str());
}

void setOrRemove(pugi::xml_node node, const char* name, const std::string& value) {
    node.remove_attribute(name);
    if (!value.empty()) node.prepend_attribute(name).set_value(value.c_str());
}

void setName(pugi::xml_node drawing, std::string_view element, const std::string& name) {
    findLocal(drawing, element).attribute("name").set_value(name.c_str());
}

/// Sets the effect extent: Word lays out the unrotated frame, and a rotated picture needs more room.
void setEffectExtent(pugi::xml_node drawing, pugi::xml_node extent, std::int64_t width, std::int64_t height,
                     bool isTurned) {
    pugi::xml_node effect = findLocal(drawing, "effectExtent");
    if (!effect && !isTurned) return;
    if (!effect) {
        const std::string_view name = extent.name();
        const std::string prefix(name.substr(0, name.find(':') + 1));
        effect = extent.parent().insert_child_after((prefix + "effectExtent").c_str(), extent);
    }
    const std::int64_t beside = isTurned ? std::max<std::int64_t>(0, (height - width) / 2) : 0;
    const std::int64_t above = isTurned ? std::max<std::int64_t>(0, (width - height) / 2) : 0;
    for (const auto& [side, value] : {std::pair("l", beside), {"t", above}, {"r", beside}, {"b", above}}) {
        effect.remove_attribute(side);
        effect.append_attribute(side).set_value(std::to_string(value).c_str());
    }
}

}  // namespace

bool showsPicture(pugi::xml_node drawing) {
    return linkOf(drawing) && findLocal(drawing, "extent") && findLocal(drawing, "xfrm");
}

std::string pictureLinkOf(pugi::xml_node drawing) {
    return linkOf(drawing).value();
}

void replacePicture(pugi::xml_node drawing, const std::string& relationshipId,
                    const opc::PictureFile& picture, const std::string& name) {
    const PictureTurn turn = pictureTurn(picture.orientation());
    const bool isTurned = turn.isSideways();
    pugi::xml_node extent = findLocal(drawing, "extent");
    pugi::xml_node transform = findLocal(drawing, "xfrm");
    const bool wasTurned = (transform.attribute("rot").as_llong() / kQuarterTurn) % 2 != 0;
    const std::int64_t shownWidth = extent.attribute(wasTurned ? "cy" : "cx").as_llong();
    const double ratio = static_cast<double>(picture.naturalHeight().value) /
                         static_cast<double>(picture.naturalWidth().value);
    const std::int64_t other = std::max<std::int64_t>(
        1, static_cast<std::int64_t>(static_cast<double>(shownWidth) * (isTurned ? 1 / ratio : ratio)));
    const std::int64_t width = isTurned ? other : shownWidth;
    const std::int64_t height = isTurned ? shownWidth : other;

    linkOf(drawing).set_value(relationshipId.c_str());
    setExtent(extent, width, height);
    setExtent(findLocal(transform, "ext"), width, height);
    setEffectExtent(drawing, extent, width, height, isTurned);
    setOrRemove(transform, "flipH", turn.isMirrored ? "1" : "");
    setOrRemove(transform, "flipV", "");
    setOrRemove(transform, "rot", turn.quarters == 0 ? "" : std::to_string(turn.quarters * kQuarterTurn));
    if (const pugi::xml_node crop = findLocal(drawing, "srcRect")) crop.parent().remove_child(crop);
    setName(drawing, "docPr", name);
    setName(drawing, "cNvPr", name);
}

}  // namespace mergeloom::embedded
