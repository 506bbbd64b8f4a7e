#include "describe/DescribeMain.h"

#include <unistd.h>

#include <clocale>
#include <iostream>
#include <string>
#include <vector>

int main(int count, char** values) {
    // Values are shown as the user writes dates and numbers.
    std::setlocale(LC_ALL, "");
    const std::vector<std::string> arguments(values + (count > 0 ? 1 : 0), values + count);
    return mergeloom::describe::Main(arguments, {std::cout, std::cerr, isatty(STDERR_FILENO) != 0});
}
