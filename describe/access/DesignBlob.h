#pragma once

#include "describe/access/FieldValue.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace mergeloom::describe::access {

/// A property of an object in the design of a form. Its slot is its place among the properties of this kind
/// of object, its code is the same for all kinds.
struct DesignProperty {
    std::uint32_t slot = 0;
    std::uint32_t type = 0;  ///< a type of columns: 10 and 12 are texts
    Bytes value{};
};

/// A form, or a section or control of it, with the objects in it. The values are bytes of the stream.
struct DesignObject {
    int kind = 0;  ///< 0 for the form itself
    std::map<int, DesignProperty> properties{};
    std::vector<DesignObject> children{};

    /// Returns a text; empty if there is none.
    [[nodiscard]] std::string text(int code) const;
    /// Returns the text in a slot; empty if there is none.
    [[nodiscard]] std::string textInSlot(std::uint32_t slot) const;
    /// Returns a whole number, or the given one if there is none.
    [[nodiscard]] int number(int code, int otherwise) const;
};

/// Reads the stream "Blob" of a form, to its end. Raises kFileCouldNotBeRead for bytes that are no design.
DesignObject readDesign(Bytes blob);

}  // namespace mergeloom::describe::access
