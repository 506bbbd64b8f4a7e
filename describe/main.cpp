#include "base/Terminal.h"
#include "describe/DescribeMain.h"

#include <clocale>

int main(int count, char** values) {
    // Values are shown as the user writes dates and numbers.
    std::setlocale(LC_ALL, "");
    const mergeloom::Terminal terminal(count, values);
    return mergeloom::describe::Main(terminal.arguments(),
                                     {terminal.output(), terminal.errors(), terminal.showsErrors()});
}
