#include "app/DesignerProgram.h"
#include "app/modMainEntry.h"
#include "base/LargePages.h"
#include "base/Terminal.h"

int main(int count, char** values) {
    mergeloom::useLargePages();
    const mergeloom::Terminal terminal(count, values);
    return mergeloom::Main(terminal.arguments(),
                           {terminal.output(), terminal.errors(), terminal.showsErrors(),
                            terminal.commandLine(), terminal.messageBoxes()},
                           mergeloom::execDesigner);
}
