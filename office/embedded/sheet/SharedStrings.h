#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace mergeloom::embedded {

/// The shared strings of a workbook (ECMA-376 Part 1, 18.4.9), read by number: the bytes of the part with an
/// index of where each begins, no tree.
class SharedStrings {
  public:
    /// No strings.
    SharedStrings() = default;
    /// Raises kFileCouldNotBeRead, with a sentence that names file and part, when it is malformed.
    SharedStrings(std::string xml, std::string partName, std::string fileName);

    [[nodiscard]] std::size_t count() const { return offsets_.size(); }
    /// The plain text, its runs joined and phonetic hints left out. Raises kFileCouldNotBeRead for a number
    /// beyond the last.
    [[nodiscard]] std::string text(std::size_t index) const;

  private:
    void readOffsets();

    std::string xml_;
    std::string partName_;
    std::string fileName_;
    std::string prefix_;  // of the elements' names, with its colon
    std::vector<std::uint32_t> offsets_;
};

}  // namespace mergeloom::embedded
