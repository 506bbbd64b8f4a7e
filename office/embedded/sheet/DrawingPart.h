#pragma once

#include "office/embedded/sheet/PartState.h"
#include "office/opc/XmlPart.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

namespace mergeloom::embedded {

/// The part of a drawing as a tree, with an index of its shapes. Every child of the root that holds an anchor
/// is a shape.
class DrawingPart {
  public:
    using ShapeId = std::int64_t;

    /// The number that was given last is kept outside, so that no later drawing of the sheet gives it again.
    DrawingPart(std::unique_ptr<opc::XmlPart> part, ShapeId& lastShape, UndoLog& undo);
    DrawingPart(const DrawingPart&) = delete;
    DrawingPart& operator=(const DrawingPart&) = delete;

    [[nodiscard]] const opc::XmlPart& xml() const { return *part_; }
    [[nodiscard]] PartState& state() { return state_; }
    [[nodiscard]] bool isStrict() const;

    /// From back to front.
    [[nodiscard]] std::vector<ShapeId> shapes() const;
    [[nodiscard]] bool has(ShapeId shape) const { return shapes_.contains(shape); }
    [[nodiscard]] std::optional<ShapeId> find(const std::string& name) const;
    /// Raises kObjectDeleted when there is no such shape.
    [[nodiscard]] pugi::xml_node node(ShapeId shape) const;
    [[nodiscard]] const std::string& name(ShapeId shape) const;
    /// Those that are tied to two cells but keep their size.
    [[nodiscard]] const std::set<ShapeId>& pinned() const { return pinned_; }

    /// Higher than those of all objects.
    [[nodiscard]] std::int64_t freeObjectId() const { return highestObjectId_ + 1; }
    void setName(ShapeId shape, const std::string& name);
    /// Takes a node that was just appended to the root as the foremost shape.
    ShapeId insert(pugi::xml_node node);
    void remove(ShapeId shape);

    /// How often the drawing refers to a relationship.
    [[nodiscard]] int uses(const std::string& relationshipId) const;
    /// The relationships that nothing but the shape refers to.
    [[nodiscard]] std::vector<std::string> usedOnlyBy(ShapeId shape) const;

  private:
    struct Shape {
        pugi::xml_node node;
        std::string name;
    };

    void enter(ShapeId shape, pugi::xml_node node);
    void leave(ShapeId shape);
    void index(ShapeId shape, const std::string& name);
    void unindex(ShapeId shape);
    void rename(ShapeId shape, const std::string& name);

    std::unique_ptr<opc::XmlPart> part_;
    ShapeId& lastShape_;
    PartState state_;
    std::map<ShapeId, Shape> shapes_;                            // numbers grow from back to front
    std::unordered_map<std::string, std::set<ShapeId>> byName_;  // case folded
    std::set<ShapeId> pinned_;
    std::unordered_map<std::string, int> uses_;  // by the relationship's id
    std::int64_t highestObjectId_ = 1;
};

}  // namespace mergeloom::embedded
