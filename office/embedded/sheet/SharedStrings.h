#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace mergeloom::embedded {

/// The shared strings of a workbook (ECMA-376 Part 1, 18.4.9), read by number. There is no tree, only the
/// bytes of the part with the offset of each string.
class SharedStrings {
  public:
    /// No strings.
    SharedStrings() = default;
    /// Raises kFileCouldNotBeRead, with a sentence that names file and part, if the part is malformed.
    SharedStrings(std::string xml, std::string partName, std::string fileName);

    [[nodiscard]] std::size_t count() const { return offsets_.size(); }
    /// Returns the plain text: all runs joined, without phonetic hints. Raises kFileCouldNotBeRead for a
    /// number beyond the last.
    [[nodiscard]] std::string text(std::size_t index) const;

  private:
    void readOffsets();

    std::string xml_;
    std::string partName_;
    std::string fileName_;
    std::string prefix_;  // the prefix of the elements' names, with its colon
    std::vector<std::uint32_t> offsets_;
};

}  // namespace mergeloom::embedded
