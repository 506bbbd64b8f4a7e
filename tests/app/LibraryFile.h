#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace mergeloom {

enum class LibraryFormat { Pe32, Pe32Plus };

/// Makes the bytes of a Windows library that holds nothing but a string table, in one language.
class LibraryFile {
  public:
    explicit LibraryFile(LibraryFormat format) : format_(format) {}

    void add(std::uint32_t id, const std::u16string& text) { strings_[id] = text; }

    [[nodiscard]] std::string bytes() const {
        const std::string resources = resourceSection();
        std::string file = "MZ" + std::string(58, '\0') + number(kHeaderPlace, 4);
        file.resize(kHeaderPlace);
        file += headers(resources.size());
        file.resize(kResourcesPlace);
        return file + resources;
    }

  private:
    static constexpr std::uint32_t kHeaderPlace = 0x80;
    static constexpr std::uint32_t kResourcesPlace = 0x400;
    static constexpr std::uint32_t kResourcesAddress = 0x3000;
    static constexpr std::uint32_t kSubdirectory = 0x80000000;

    static std::string number(std::size_t value, int size) {
        std::string bytes;
        for (int k = 0; k < size; ++k)
            bytes += static_cast<char>(value >> (8 * k) & 0xFF);
        return bytes;
    }

    static std::string directory(std::size_t entries) { return std::string(14, '\0') + number(entries, 2); }

    [[nodiscard]] std::string headers(std::size_t resourceSize) const {
        const bool isPlus = format_ == LibraryFormat::Pe32Plus;
        const std::size_t directories = isPlus ? 112 : 96;
        std::string optional = number(isPlus ? 0x20B : 0x10B, 2);
        optional.resize(directories - 4);
        optional +=
            number(16, 4) + std::string(16, '\0') + number(kResourcesAddress, 4) + number(resourceSize, 4);
        optional.resize(directories + std::size_t{16} * 8);
        std::string section = ".rsrc" + std::string(3, '\0') + number(resourceSize, 4) +
                              number(kResourcesAddress, 4) + number(resourceSize, 4) +
                              number(kResourcesPlace, 4);
        section.resize(40);
        const std::string otherSection(40, '\0');
        return "PE" + std::string(2, '\0') + number(0x14C, 2) + number(2, 2) + std::string(12, '\0') +
               number(optional.size(), 2) + std::string(2, '\0') + optional + otherSection + section;
    }

    [[nodiscard]] std::map<std::uint32_t, std::string> blocks() const {
        std::map<std::uint32_t, std::string> result;
        for (const auto& [id, text] : strings_)
            result[id / 16];
        for (auto& [block, bytes] : result) {
            for (std::uint32_t id = block * 16; id < block * 16 + 16; ++id) {
                const auto found = strings_.find(id);
                const std::u16string text = found == strings_.end() ? u"" : found->second;
                bytes += number(text.size(), 2);
                for (const char16_t unit : text)
                    bytes += number(unit, 2);
            }
        }
        return result;
    }

    /// The directory of types with another type before the strings; one directory of blocks; for each block
    /// one of languages and its data entry; the blocks.
    [[nodiscard]] std::string resourceSection() const {
        const std::map<std::uint32_t, std::string> all = blocks();
        const std::size_t blockDirectory = 16 + 2 * 8;
        const std::size_t languages = blockDirectory + 16 + all.size() * 8;
        const std::size_t perBlock = 16 + 8 + 16;
        std::size_t data = languages + all.size() * perBlock;
        std::string section = directory(2) + number(3, 4) + number(0, 4) + number(6, 4) +
                              number(kSubdirectory | blockDirectory, 4) + directory(all.size());
        std::string rest;
        std::string contents;
        std::size_t language = languages;
        for (const auto& [block, bytes] : all) {
            section += number(block + 1, 4) + number(kSubdirectory | language, 4);
            rest += directory(1) + number(0x407, 4) + number(language + 24, 4) +
                    number(kResourcesAddress + data, 4) + number(bytes.size(), 4) + std::string(8, '\0');
            contents += bytes;
            language += perBlock;
            data += bytes.size();
        }
        return section + rest + contents;
    }

    LibraryFormat format_;
    std::map<std::uint32_t, std::u16string> strings_;
};

}  // namespace mergeloom
