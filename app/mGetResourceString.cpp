#include "app/mGetResourceString.h"

#include "base/AutomationError.h"
#include "base/DiskFileStore.h"
#include "base/Text.h"

#include <optional>
#include <stdexcept>

namespace mergeloom {

namespace {

// The names in comments are those of the PE format's own documentation.
constexpr std::size_t kPlaceOfHeader = 0x3C;  // e_lfanew
constexpr std::size_t kFileHeaderSize = 24;   // the signature and the COFF header
constexpr std::size_t kSectionHeaderSize = 40;
constexpr std::uint32_t kSignature = 0x00004550;  // "PE", 0, 0
constexpr std::uint16_t kPe32 = 0x10B;
constexpr std::uint16_t kPe32Plus = 0x20B;
constexpr std::uint32_t kResourceDirectory = 2;
constexpr std::uint32_t kStringTable = 6;
constexpr std::uint32_t kStringsPerBlock = 16;
constexpr std::uint32_t kHighBit = 0x80000000;
constexpr std::uint32_t kMaxIds = 0x10000;

/// Reads little-endian numbers of a file; raises std::out_of_range outside of it.
class FileBytes {
  public:
    explicit FileBytes(std::string_view bytes) : bytes_(bytes) {}

    [[nodiscard]] std::uint16_t word(std::size_t offset) const {
        return static_cast<std::uint16_t>(byte(offset) | byte(offset + 1) << 8U);
    }
    [[nodiscard]] std::uint32_t doubleWord(std::size_t offset) const {
        return word(offset) | static_cast<std::uint32_t>(word(offset + 2)) << 16U;
    }

  private:
    [[nodiscard]] unsigned byte(std::size_t offset) const {
        return static_cast<unsigned char>(bytes_.at(offset));
    }

    std::string_view bytes_;
};

/// The headers of a library and its sections, which map an address of the loaded library to an offset in the
/// file.
class LibraryLayout {
  public:
    explicit LibraryLayout(const FileBytes& bytes)
        : bytes_(bytes), header_(bytes.doubleWord(kPlaceOfHeader)) {
        if (bytes.doubleWord(header_) != kSignature) throw std::out_of_range("no PE file");
    }

    /// Returns the address of the resources.
    [[nodiscard]] std::uint32_t resources() const {
        const std::size_t optionalHeader = header_ + kFileHeaderSize;
        const std::uint16_t magic = bytes_.word(optionalHeader);
        if (magic != kPe32 && magic != kPe32Plus) throw std::out_of_range("no PE file");
        const std::size_t directories = optionalHeader + (magic == kPe32 ? 96 : 112);
        const std::uint32_t count = bytes_.doubleWord(directories - 4);  // NumberOfRvaAndSizes
        if (count <= kResourceDirectory) throw std::out_of_range("no resources");
        return bytes_.doubleWord(directories + std::size_t{8} * kResourceDirectory);
    }

    [[nodiscard]] std::size_t offsetOf(std::uint32_t address) const {
        const std::uint16_t sections = bytes_.word(header_ + 6);             // NumberOfSections
        const std::uint16_t optionalHeaderSize = bytes_.word(header_ + 20);  // SizeOfOptionalHeader
        std::size_t section = header_ + kFileHeaderSize + optionalHeaderSize;
        for (std::uint16_t k = 0; k < sections; ++k, section += kSectionHeaderSize) {
            const std::uint32_t start = bytes_.doubleWord(section + 12);  // VirtualAddress
            const std::uint32_t size = bytes_.doubleWord(section + 16);   // SizeOfRawData
            if (address < start || address - start >= size) continue;
            return std::size_t{bytes_.doubleWord(section + 20)} + (address - start);  // PointerToRawData
        }
        throw std::out_of_range("the address lies in no section");
    }

  private:
    FileBytes bytes_;
    std::size_t header_;
};

/// The tree of resources: a directory of types leads to directories of names, these to directories of
/// languages and these to data. All offsets count from the tree's start.
class ResourceTree {
  public:
    ResourceTree(const FileBytes& bytes, std::size_t start) : bytes_(bytes), start_(start) {}

    /// Returns the value of the directory's entry with the id.
    [[nodiscard]] std::uint32_t entry(std::uint32_t directory, std::uint32_t id) const {
        const std::size_t named = bytes_.word(start_ + directory + 12);
        const std::size_t numbered = bytes_.word(start_ + directory + 14);
        for (std::size_t k = named; k < named + numbered; ++k) {
            const std::size_t place = entryPlace(directory, k);
            if (bytes_.doubleWord(place) == id) return bytes_.doubleWord(place + 4);
        }
        throw std::out_of_range("no such entry");
    }

    [[nodiscard]] std::uint32_t firstEntry(std::uint32_t directory) const {
        const std::size_t place = start_ + directory;
        if (bytes_.word(place + 12) + bytes_.word(place + 14) == 0) throw std::out_of_range("no entry");
        return bytes_.doubleWord(entryPlace(directory, 0) + 4);
    }

    /// Returns the address of the data of an entry in a directory of languages.
    [[nodiscard]] std::uint32_t dataAddress(std::uint32_t entry) const {
        return bytes_.doubleWord(start_ + asData(entry));
    }

    static std::uint32_t asDirectory(std::uint32_t entry) {
        if ((entry & kHighBit) == 0) throw std::out_of_range("data where a directory should be");
        return entry & ~kHighBit;
    }

  private:
    static std::uint32_t asData(std::uint32_t entry) {
        if ((entry & kHighBit) != 0) throw std::out_of_range("a directory where data should be");
        return entry;
    }
    [[nodiscard]] std::size_t entryPlace(std::uint32_t directory, std::size_t index) const {
        return start_ + directory + 16 + 8 * index;
    }

    FileBytes bytes_;
    std::size_t start_;
};

/// Returns a string of a block, which has its strings one after the other, each as its length and its UTF-16
/// code units.
std::u16string stringOfBlock(const FileBytes& bytes, std::size_t block, std::uint32_t index) {
    for (std::uint32_t k = 0; k < index; ++k)
        block += 2 + std::size_t{2} * bytes.word(block);
    std::u16string text;
    const std::size_t length = bytes.word(block);
    for (std::size_t k = 1; k <= length; ++k)
        text += static_cast<char16_t>(bytes.word(block + 2 * k));
    return text;
}

std::u16string findString(const FileBytes& bytes, std::uint32_t id) {
    const LibraryLayout layout(bytes);
    const ResourceTree tree(bytes, layout.offsetOf(layout.resources()));
    const std::uint32_t blocks = ResourceTree::asDirectory(tree.entry(0, kStringTable));
    const std::uint32_t languages = ResourceTree::asDirectory(tree.entry(blocks, id / kStringsPerBlock + 1));
    const std::uint32_t address = tree.dataAddress(tree.firstEntry(languages));
    return stringOfBlock(bytes, layout.offsetOf(address), id % kStringsPerBlock);
}

/// The length of a text in a buffer of 260 characters, without its closing zero.
constexpr std::size_t kMaxCharacters = 259;

}  // namespace

std::u16string resourceString(std::string_view library, std::uint32_t id) {
    if (id >= kMaxIds) return {};
    try {
        return findString(FileBytes(library), id);
    } catch (const std::out_of_range&) {
        // A library without the string and a damaged one are the same to the caller.
        return {};
    }
}

std::string GetResourceString(const std::string& vstrLibraryFile, std::int32_t vlngId) {
    if (vlngId < 0) return {};
    try {
        const std::string library = DiskFileStore().read(vstrLibraryFile);
        const std::u16string text = resourceString(library, static_cast<std::uint32_t>(vlngId));
        return fromUtf16(std::u16string_view(text).substr(0, kMaxCharacters));
    } catch (const AutomationError&) {
        // For the caller, a missing library and a missing string are the same.
        return {};
    }
}

}  // namespace mergeloom
