#pragma once

#include "office/graft/CanonicalXml.h"
#include "office/graft/FormatNumbers.h"
#include "office/opc/Package.h"
#include "office/opc/XmlPart.h"

#include <cstddef>
#include <memory>
#include <pugixml.hpp>
#include <string>
#include <vector>

namespace mergeloom::graft {

/// The prefix for ids of number formats without a code in the file. No code begins with it.
inline constexpr char kNumberFormatId = '\x01';

/// A cell format of an export and everything that it refers to (CT_Xf, ECMA-376 Part 1, 18.8.45). Nodes that
/// the format does not have are empty.
struct ExportedFormat {
    std::string numberFormat;  ///< its code, or kNumberFormatId and its id
    pugi::xml_node font;
    pugi::xml_node fill;
    pugi::xml_node border;
    pugi::xml_node alignment;
    pugi::xml_node protection;
    int number = 0;  ///< equal for equal formats of exports that share the numbers
};

/// The cell formats of an export by their indices.
class ExportedFormats {
  public:
    /// Raises kFileCouldNotBeRead for a damaged part. Keeps no reference to the numbers.
    ExportedFormats(opc::Package& package, FormatNumbers& numbers);

    /// Returns the format; the first one for an index without a format.
    [[nodiscard]] const ExportedFormat& at(int index) const;
    /// Returns the canonical form of a differential format (CT_Dxf); empty if there is none of that index.
    [[nodiscard]] std::string differential(std::size_t index) const;

  private:
    std::unique_ptr<opc::XmlPart> part_;
    std::vector<ExportedFormat> formats_;
    std::vector<std::string> differentials_;
};

}  // namespace mergeloom::graft
