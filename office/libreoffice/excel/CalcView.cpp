#include "office/libreoffice/excel/CalcView.h"

#include <com/sun/star/frame/DispatchHelper.hpp>

namespace mergeloom::libreoffice {

void unmarkCells(OfficeConnection& connection, const Reference<css::frame::XController>& view) {
    const Reference<css::frame::XDispatchProvider> commands(view->getFrame(), UNO_QUERY_THROW);
    css::frame::DispatchHelper::create(connection.context())
        ->executeDispatch(commands, ".uno:Deselect", {}, 0, {});
}

}  // namespace mergeloom::libreoffice
