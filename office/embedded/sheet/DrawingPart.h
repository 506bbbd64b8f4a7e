#pragma once

#include "office/embedded/sheet/UndoLog.h"
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

/// The part of a drawing as a tree, with an index of its shapes. Every child of the root that contains an
/// anchor is a shape.
class DrawingPart {
  public:
    using ShapeId = std::int64_t;

    /// lastShape is kept by the caller, so that a later drawing of the same sheet does not reuse numbers.
    DrawingPart(std::unique_ptr<opc::XmlPart> part, ShapeId& lastShape, UndoLog& undo);

    [[nodiscard]] const opc::XmlPart& xml() const { return *part_; }
    [[nodiscard]] PartState& state() { return state_; }
    [[nodiscard]] bool isStrict() const;

    /// Returns all shapes from back to front.
    [[nodiscard]] std::vector<ShapeId> shapes() const;
    [[nodiscard]] bool has(ShapeId shape) const { return shapes_.contains(shape); }
    [[nodiscard]] std::optional<ShapeId> find(const std::string& name) const;
    /// Returns the root's child. Raises kObjectDeleted if there is no such shape.
    [[nodiscard]] pugi::xml_node node(ShapeId shape) const;
    [[nodiscard]] const std::string& name(ShapeId shape) const;
    /// Returns the shapes that are tied to two cells but keep their size.
    [[nodiscard]] const std::set<ShapeId>& pinned() const { return pinned_; }

    /// Returns an id above those of all objects.
    [[nodiscard]] std::int64_t freeObjectId() const { return highestObjectId_ + 1; }
    void setName(ShapeId shape, const std::string& name);
    /// Registers a node that was just appended to the root as the foremost shape.
    ShapeId insert(pugi::xml_node node);
    void remove(ShapeId shape);

    /// Returns how often the drawing refers to a relationship.
    [[nodiscard]] int uses(const std::string& relationshipId) const;
    /// Returns the relationships to which only this shape refers.
    [[nodiscard]] std::vector<std::string> usedOnlyBy(ShapeId shape) const;

  private:
    struct Shape {
        pugi::xml_node node;
        std::string name;
    };

    void registerShape(ShapeId shape, pugi::xml_node node);
    void unregisterShape(ShapeId shape);
    void index(ShapeId shape, const std::string& name);
    void unindex(ShapeId shape);
    void rename(ShapeId shape, const std::string& name);

    std::unique_ptr<opc::XmlPart> part_;
    ShapeId& lastShape_;
    PartState state_;
    std::map<ShapeId, Shape> shapes_;                            // ascending from back to front
    std::unordered_map<std::string, std::set<ShapeId>> byName_;  // case folded
    std::set<ShapeId> pinned_;
    std::unordered_map<std::string, int> uses_;  // by the id of the relationship
    std::int64_t highestObjectId_ = 1;
};

}  // namespace mergeloom::embedded
