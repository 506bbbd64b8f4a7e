#include "WholeFile.h"
#include "office/opc/Package.h"

#include <cstdlib>
#include <iostream>

// What no editing of some parts can do without: the archive is copied, the parts are inflated and deflated
// again. Nothing is parsed or edited, nothing else is read, and the file is not synced to the disk.

int main(int count, char** arguments) {
    using namespace mergeloom;
    if (count < 4) {
        std::cerr << "Usage: rewrite_parts PACKAGE TARGET PART...\n";
        return EXIT_FAILURE;
    }
    auto package = opc::Package::read(contentOf(arguments[1]), arguments[1]);
    for (int index = 3; index < count; ++index) {
        package.writePart(arguments[index], package.readPart(arguments[index]));
    }
    FileSink sink(arguments[2]);
    package.write(sink);
    return sink.close() ? EXIT_SUCCESS : EXIT_FAILURE;
}
