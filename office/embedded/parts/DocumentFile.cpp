#include "office/embedded/parts/DocumentFile.h"

#include "base/AutomationError.h"
#include "base/Paths.h"

#include <algorithm>
#include <array>
#include <utility>

namespace mergeloom::embedded {

namespace {

/// The relationships of a main part that only the kinds with macros may have ([MS-OFFMACRO2]).
constexpr std::array kMacroRelationships{
    "http://schemas.microsoft.com/office/2006/relationships/vbaProject",
    "http://schemas.microsoft.com/office/2006/relationships/xlMacrosheet",
};

[[noreturn]] void refuse(const std::string& fileName, const std::string& why) {
    throw AutomationError(kFileCouldNotBeSaved, "The file '" + fileName + "' cannot be saved: " + why);
}

bool holdsMacros(opc::Package& package, const std::string& mainPart) {
    const opc::Relationships& relationships = package.relationshipsOf(mainPart);
    return std::ranges::any_of(kMacroRelationships,
                               [&](const char* type) { return relationships.hasType(type); });
}

/// Sets the main part's content type to that of the format.
void setSaveFormat(opc::Package& package, DocumentFamily family, int number, const std::string& fileName) {
    if (!canWrite(family, number)) {
        refuse(fileName, "its format can only be written by another office. Choose " +
                             engineExtensions(family, Macros::Refused) + ".");
    }
    const OpenPackagingKind& target = *findFormat(family, number)->engine;
    const std::string mainPart = package.mainPart();
    if (target.macros == Macros::Refused && holdsMacros(package, mainPart))
        refuse(fileName, macroRefusal(family));
    const std::string type(target.contentType);
    if (package.contentTypes().of(mainPart) != type) package.contentTypes().setOverride(mainPart, type);
}

/// Stores one file in memory.
class SavedBytes final : public FileStore {
  public:
    bool fileExists(const std::string&) override { return false; }
    std::string read(const std::string&) override { return bytes_; }
    void save(const std::string&, const std::function<void(ByteSink&)>& writer) override {
        Sink sink(bytes_);
        writer(sink);
    }
    std::string take() { return std::move(bytes_); }

  private:
    class Sink final : public ByteSink {
      public:
        explicit Sink(std::string& bytes) : bytes_(bytes) {}
        void write(std::span<const char> bytes) override { bytes_.append(bytes.data(), bytes.size()); }

      private:
        std::string& bytes_;
    };

    std::string bytes_;
};

}  // namespace

bool canWrite(DocumentFamily family, int number) {
    const FileFormat* const format = findFormat(family, number);
    return format != nullptr && format->engine;
}

std::string DocumentFile::name() const {
    return fileNameOnly(fullName_);
}

void DocumentFile::save(opc::Package& package) {
    if (!hasFile_) throw AutomationError(kFileCouldNotBeSaved, "The document has no file name yet.");
    write(package, fullName_);
}

void DocumentFile::saveAs(opc::Package& package, DocumentFamily family, int number,
                          const std::string& fileName) {
    const std::string mainPart = package.mainPart();
    const std::string formerType = package.contentTypes().of(mainPart);
    setSaveFormat(package, family, number, fileName);
    try {
        write(package, fileName);
    } catch (const AutomationError&) {
        // The document keeps its former name, and with it the content type that fits the name.
        package.contentTypes().setOverride(mainPart, formerType);
        throw;
    }
    fullName_ = fileName;
    hasFile_ = true;
}

void DocumentFile::write(opc::Package& package, const std::string& fileName) {
    files_.save(fileName, [&](ByteSink& sink) { package.write(sink); });
}

std::string savedBytes(opc::Package& package, DocumentFamily family, int number,
                       const std::string& fileName) {
    SavedBytes bytes;
    DocumentFile file(bytes, package.fileName(), true);
    file.saveAs(package, family, number, fileName);
    return bytes.take();
}

}  // namespace mergeloom::embedded
