#pragma once

#include <string>
#include <string_view>

namespace mergeloom {

inline constexpr std::string_view kAtStart = "start";
inline constexpr std::string_view kAtEnd = "end";

/// The choices of a mapping that are made by options and not by switches. An empty text is an absent option.
struct MappingOptions {
    std::string object{};  ///< the name of the object to map: "Orders", or "Form Orders"
    std::string at{};      ///< where the mapping begins: kAtStart, kAtEnd, or the name of a place
    std::string folder{};  ///< the folder in which each object gets a template
    std::string format{};  ///< the extension of those templates, without its dot

    [[nodiscard]] bool mapsAll() const { return !folder.empty(); }
};

}  // namespace mergeloom
