#pragma once

#include "office/embedded/excel/WorkbookContent.h"
#include "office/graft/BookExport.h"

#include <cstddef>
#include <vector>

namespace mergeloom::graft {

/// Copies pictures that were added to exported sheets into an original.
class BookPictures {
  public:
    /// The package of the export must outlive this object.
    explicit BookPictures(opc::Package& exported) : exported_(exported) {}

    /// Adds the objects of an exported sheet after the first ones to a sheet of the original. Raises Refusal
    /// for anything but pictures in the package.
    void add(embedded::WorkbookContent& original, std::size_t sheet, const ExportedSheet& now,
             std::size_t first);
    /// Sets the places and forms of the pictures to those of the export. Their parts must have been written.
    void finish(opc::Package& original);

  private:
    struct Added {
        std::string sheetPart;
        std::vector<pugi::xml_node> anchors;  ///< of the export, in order
    };

    opc::Package& exported_;
    std::vector<Added> added_;
};

}  // namespace mergeloom::graft
