#include "ui/designer/DesignerMain.h"

#include <QApplication>

namespace mergeloom {

int runDesigner(int& count, char** values) {
    const QApplication application(count, values);
    return QApplication::exec();
}

}  // namespace mergeloom
