#pragma once

#include <string_view>

namespace mergeloom::libreoffice {

/// One of the office's own names for a way of reading or writing files, with the options that it takes.
struct OfficeFilter {
    std::string_view name;
    std::string_view options = {};
};

}  // namespace mergeloom::libreoffice
