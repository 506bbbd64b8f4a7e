#include "ui/designer/DesignerMain.h"

int main(int count, char** values) {
    return mergeloom::runDesigner(count, values);
}
