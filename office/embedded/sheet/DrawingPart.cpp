#include "office/embedded/sheet/DrawingPart.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "office/embedded/sheet/DrawingElements.h"
#include "office/embedded/sheet/TreeEdit.h"
#include "office/opc/XmlPart.h"

#include <algorithm>
#include <ranges>
#include <string_view>
#include <utility>

namespace mergeloom::embedded {

namespace {

/// Ids are 32-bit numbers. Some programs use random ones near the maximum, above which there are no free
/// ones.
constexpr std::int64_t kMaxOrdinaryId = 1'000'000'000;

/// Returns true if an attribute may contain the id of a relationship: those have a prefix, unlike the
/// drawing's own attributes.
bool mayRefer(pugi::xml_attribute attribute) {
    const std::string_view name = attribute.name();
    return name.find(':') != std::string_view::npos && !name.starts_with("xmlns:");
}

/// Returns the attributes of a shape that may contain ids of relationships.
std::vector<pugi::xml_attribute> referencesIn(pugi::xml_node node) {
    std::vector<pugi::xml_attribute> references;
    forEachElement(node, [&](pugi::xml_node element) {
        for (const pugi::xml_attribute attribute : element.attributes()) {
            if (mayRefer(attribute)) references.push_back(attribute);
        }
    });
    return references;
}

std::int64_t highestObjectIdIn(pugi::xml_node root) {
    std::int64_t highest = 1;
    forEachElement(root, [&](pugi::xml_node element) {
        if (opc::localName(element) != "cNvPr") return;
        const std::int64_t id = element.attribute("id").as_llong();
        if (id < kMaxOrdinaryId) highest = std::max(highest, id);
    });
    return highest;
}

bool isPinned(pugi::xml_node node) {
    return std::ranges::any_of(anchorsIn(node), [](pugi::xml_node anchor) {
        return DrawingAnchor(anchor).mode() != AnchorMode::MovesAndStretches;
    });
}

}  // namespace

DrawingPart::DrawingPart(std::unique_ptr<opc::XmlPart> part, ShapeId& lastShape, UndoLog& undo)
    : part_(std::move(part)), lastShape_(lastShape), state_(undo) {
    const pugi::xml_node root = part_->root();
    highestObjectId_ = highestObjectIdIn(root);
    for (const pugi::xml_node child : root.children()) {
        if (!anchorsIn(child).empty()) registerShape(++lastShape_, child);
    }
}

bool DrawingPart::isStrict() const {
    const std::string_view strict = drawingNamespaces(opc::Conformance::Strict).sheetDrawing;
    return std::ranges::any_of(part_->root().attributes(), [&](const pugi::xml_attribute& attribute) {
        return attribute.value() == strict;
    });
}

std::vector<DrawingPart::ShapeId> DrawingPart::shapes() const {
    std::vector<ShapeId> numbers;
    numbers.reserve(shapes_.size());
    for (const auto& [number, shape] : shapes_)
        numbers.push_back(number);
    return numbers;
}

std::optional<DrawingPart::ShapeId> DrawingPart::find(const std::string& name) const {
    const auto found = byName_.find(foldCase(name));
    if (found == byName_.end()) return {};
    return *found->second.begin();
}

pugi::xml_node DrawingPart::node(ShapeId shape) const {
    const auto found = shapes_.find(shape);
    if (found == shapes_.end()) throw AutomationError(kObjectDeleted, "The object has been deleted.");
    return found->second.node;
}

const std::string& DrawingPart::name(ShapeId shape) const {
    (void)node(shape);
    return shapes_.at(shape).name;
}

void DrawingPart::setName(ShapeId shape, const std::string& name) {
    const std::string former = this->name(shape);
    setNameOfShape(node(shape), name, state_);
    rename(shape, name);
    state_.change([this, shape, former] { rename(shape, former); });
}

DrawingPart::ShapeId DrawingPart::insert(pugi::xml_node node) {
    const ShapeId shape = ++lastShape_;
    registerShape(shape, node);
    highestObjectId_ = std::max(highestObjectId_, highestObjectIdIn(node));
    state_.change([this, shape, node, detachedNodes = part_->detachedNodes()]() mutable {
        unregisterShape(shape);
        detachedNodes.append_move(node);
    });
    return shape;
}

void DrawingPart::remove(ShapeId shape) {
    const pugi::xml_node taken = node(shape);
    unregisterShape(shape);
    const pugi::xml_node next = taken.next_sibling();
    pugi::xml_node detachedNodes = part_->detachedNodes();
    detachedNodes.append_move(taken);
    state_.change([this, shape, taken, next] {
        pugi::xml_node root = part_->root();
        if (next) {
            root.insert_move_before(taken, next);
        } else {
            root.append_move(taken);
        }
        registerShape(shape, taken);
    });
}

int DrawingPart::uses(const std::string& relationshipId) const {
    const auto found = uses_.find(relationshipId);
    return found == uses_.end() ? 0 : found->second;
}

std::vector<std::string> DrawingPart::usedOnlyBy(ShapeId shape) const {
    std::map<std::string, int> own;
    for (const pugi::xml_attribute reference : referencesIn(node(shape)))
        ++own[reference.value()];
    std::vector<std::string> ids;
    for (const auto& [id, count] : own) {
        if (count == uses(id)) ids.push_back(id);
    }
    return ids;
}

void DrawingPart::registerShape(ShapeId shape, pugi::xml_node node) {
    Shape& added = shapes_[shape];
    added = {node, nameOfShape(node)};
    index(shape, added.name);
    if (isPinned(node)) pinned_.insert(shape);
    for (const pugi::xml_attribute reference : referencesIn(node))
        ++uses_[reference.value()];
}

void DrawingPart::unregisterShape(ShapeId shape) {
    for (const pugi::xml_attribute reference : referencesIn(node(shape)))
        --uses_[reference.value()];
    unindex(shape);
    pinned_.erase(shape);
    shapes_.erase(shape);
}

void DrawingPart::index(ShapeId shape, const std::string& name) {
    byName_[foldCase(name)].insert(shape);
}

void DrawingPart::unindex(ShapeId shape) {
    const auto found = byName_.find(foldCase(shapes_.at(shape).name));
    found->second.erase(shape);
    if (found->second.empty()) byName_.erase(found);
}

void DrawingPart::rename(ShapeId shape, const std::string& name) {
    unindex(shape);
    shapes_.at(shape).name = name;
    index(shape, name);
}

}  // namespace mergeloom::embedded
