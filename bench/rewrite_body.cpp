#include "WholeFile.h"
#include "office/opc/Package.h"

#include <cstdlib>
#include <iostream>
#include <pugixml.hpp>
#include <string>

// What no editing of a document can do without: the archive is copied, its body inflated, parsed, written and
// deflated again. Nothing is edited, nothing else is read, and the file is not synced to the disk.

namespace {

using namespace mergeloom;
using opc::Package;

class StringWriter : public pugi::xml_writer {
  public:
    explicit StringWriter(std::size_t expected) { text.reserve(expected); }
    void write(const void* data, std::size_t size) override {
        text.append(static_cast<const char*>(data), size);
    }

    std::string text;
};

std::string parsedAndWritten(std::string xml) {
    pugi::xml_document tree;
    tree.load_buffer_inplace(xml.data(), xml.size(), pugi::parse_full | pugi::parse_ws_pcdata);
    StringWriter writer(xml.size());
    tree.save(writer, "", pugi::format_raw);
    return std::move(writer.text);
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 3) {
        std::cerr << "Usage: rewrite_body DOCUMENT TARGET\n";
        return EXIT_FAILURE;
    }
    Package package = Package::read(contentOf(arguments[1]), arguments[1]);
    const std::string body = package.mainPart();
    package.writePart(body, parsedAndWritten(package.readPart(body)));
    FileSink sink(arguments[2]);
    package.write(sink);
    return sink.close() ? EXIT_SUCCESS : EXIT_FAILURE;
}
