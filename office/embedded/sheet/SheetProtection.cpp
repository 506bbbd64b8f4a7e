#include "office/embedded/sheet/SheetProtection.h"

#include "office/embedded/sheet/SheetSection.h"

namespace mergeloom::embedded {

SheetProtection readProtection(const SheetPart& sheet) {
    const SheetSection section(sheet, "sheetProtection");
    const pugi::xml_node protection = section.root();
    // Of a protected sheet, what is not told is locked, but for its objects.
    const bool contents = protection.attribute("sheet").as_bool();
    const auto locks = [&](const char* attribute) {
        return contents && protection.attribute(attribute).as_bool(true);
    };
    return {contents, protection.attribute("objects").as_bool(), locks("formatColumns"), locks("formatRows")};
}

}  // namespace mergeloom::embedded
