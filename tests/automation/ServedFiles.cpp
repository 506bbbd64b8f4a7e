#include "automation/ServedFiles.h"

#include "base/AutomationError.h"
#include "base/Text.h"

namespace mergeloom::automation {

namespace {

/// Returns bytes as a text of automation with a character for each.
std::string textOfBytes(const std::string& bytes) {
    std::string text;
    for (const char byte : bytes)
        appendCodePoint(text, static_cast<unsigned char>(byte));
    return text;
}

std::string bytesOfText(std::string_view text) {
    std::string bytes;
    while (!text.empty())
        bytes += static_cast<char>(takeCodePoint(text));
    return bytes;
}

struct CollectedBytes final : ByteSink {
    void write(std::span<const char> part) override { bytes.append(part.data(), part.size()); }
    std::string bytes;
};

}  // namespace

DispatchPtr serveFiles(FileStore& files) {
    return makeObject({
        method("Exists", "Path", [&files](const Given& given) { return files.fileExists(given[0].text()); }),
        method("Read", "Path",
               [&files](const Given& given) { return textOfBytes(files.read(given[0].text())); }),
        method("Save", "Path, Content",
               [&files](const Given& given) -> Value {
                   const std::string bytes = bytesOfText(given[1].text());
                   files.save(given[0].text(), [&](ByteSink& sink) { sink.write(bytes); });
                   return {};
               }),
    });
}

void ServedFiles::use(const DispatchPtr& served) {
    served_ = served;
}

com::AutomationObject ServedFiles::served() const {
    if (served_) return {session_, served_, "Files"};
    throw AutomationError(kFileCouldNotBeRead, "No test has given its files.");
}

bool ServedFiles::fileExists(const std::string& path) {
    return served().call("Exists", {path}).truth();
}

std::string ServedFiles::read(const std::string& path) {
    return bytesOfText(served().call("Read", {path}).text());
}

void ServedFiles::save(const std::string& path, const std::function<void(ByteSink&)>& writer) {
    CollectedBytes collected;
    writer(collected);
    served().call("Save", {path, textOfBytes(collected.bytes)});
}

}  // namespace mergeloom::automation
