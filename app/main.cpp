#include "app/DesignerProgram.h"
#include "app/modMainEntry.h"

#include <unistd.h>

#include <iostream>
#include <string>
#include <vector>

int main(int count, char** values) {
    const std::vector<std::string> arguments(values + (count > 0 ? 1 : 0), values + count);
    return mergeloom::Main(arguments, {std::cout, std::cerr, isatty(STDERR_FILENO) != 0},
                           mergeloom::execDesigner);
}
