#include "app/MappingSource.h"

#include "xml/CXML2TreeView.h"

#include <utility>

namespace mergeloom {

MappingSource::MappingSource(const std::string& path, ErrorHandler& errors, Messages& messages) {
    if (!document_.Load(path)) {
        messages.show({document_.parseError().reason, MessageIcon::None, MessageButtons::Ok});
        return;
    }
    CXML2TreeView view{tree_, document_, errors};
    view.DisplayXMLNode(0, document_.documentElement(), false);
    xmlNodes_ = std::move(view.XMLNodes());
    leftOut_ = view.leftOut();
}

}  // namespace mergeloom
