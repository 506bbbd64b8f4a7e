#pragma once

#include "office/libreoffice/session/Uno.h"

#include <com/sun/star/container/XNameAccess.hpp>
#include <com/sun/star/document/XUndoManager.hpp>
#include <com/sun/star/table/CellRangeAddress.hpp>
#include <cstddef>
#include <map>
#include <rtl/ref.hxx>
#include <rtl/ustring.hxx>
#include <vector>

namespace mergeloom::libreoffice {

class DocumentChanges;

/// The areas of the named cells of a workbook. They are read again only after a change of the workbook, since
/// Calc takes some microseconds for each name. Must run inside the office. Members raise UNO's exceptions.
class NamedAreas {
  public:
    NamedAreas();
    NamedAreas(const NamedAreas&) = delete;
    NamedAreas& operator=(const NamedAreas&) = delete;
    ~NamedAreas();

    using Areas = std::map<rtl::OUString, css::table::CellRangeAddress>;

    /// Reads the areas of the workbook for some milliseconds, those of new names first. Returns false if
    /// areas that were known before the last change are still to be read, by the next call.
    bool read(const DocumentReference& workbook);
    /// Returns the area of each name. Names without cells have an empty one, and those that begin with "_"
    /// none.
    [[nodiscard]] const Areas& areas() const { return areas_; }

  private:
    void endWatch();
    void watch(const DocumentReference& workbook);
    void listNames();

    DocumentReference workbook_;
    Reference<css::document::XUndoManager> steps_;
    rtl::Reference<DocumentChanges> changes_;
    Reference<css::container::XNameAccess> names_;
    Areas areas_;
    std::vector<rtl::OUString> unread_;
};

}  // namespace mergeloom::libreoffice
