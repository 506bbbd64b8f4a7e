#pragma once

#include "office/libreoffice/session/Uno.h"
#include "office/libreoffice/session/UnoText.h"

#include <com/sun/star/sheet/XNamedRanges.hpp>
#include <com/sun/star/table/CellAddress.hpp>
#include <optional>

namespace mergeloom::libreoffice {

/// A name that a step defines or removes.
class CalcNameChange {
  public:
    CalcNameChange(const Reference<css::sheet::XNamedRanges>& names, const OUString& name)
        : names_(names), name_(name) {}

    /// Removes the name if it is defined, and defines it as it was if it is not. Must run within a call.
    void exchange();

  private:
    struct Definition {
        OUString content;
        css::table::CellAddress position;
        sal_Int32 type;
    };
    [[nodiscard]] Definition read() const;

    Reference<css::sheet::XNamedRanges> names_;
    OUString name_;
    std::optional<Definition> removed_;
};

}  // namespace mergeloom::libreoffice
