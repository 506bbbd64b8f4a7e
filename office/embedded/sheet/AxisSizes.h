#pragma once

#include <cstdint>
#include <memory>
#include <vector>

namespace mergeloom::embedded {

/// The sizes of the columns or rows of a sheet in pixels, and their sums. Nearly all of them have the same
/// size; the others are kept in blocks, so that a sum adds at most one number for each block and the sizes of
/// one block.
class AxisSizes {
  public:
    /// Columns or rows from 1 to the last one.
    AxisSizes(int last, int defaultPixels);

    [[nodiscard]] int last() const { return last_; }
    [[nodiscard]] int size(int index) const;
    void setSize(int index, int pixels);

    /// The sizes of all before the index; at last() + 1 the size of all.
    [[nodiscard]] std::int64_t before(int index) const;
    /// The one that holds the pixel at a distance from the edge, which never has no size; the last one for a
    /// distance at the end of the sheet or beyond, the first one for a negative one.
    [[nodiscard]] int at(std::int64_t pixel) const;

  private:
    static constexpr int kBlockSize = 1024;

    struct Block {
        std::int64_t sum = 0;
        std::unique_ptr<std::vector<std::uint16_t>> sizes{};  ///< none while all have the default
    };

    [[nodiscard]] int sizeIn(const Block& block, int offset) const;
    [[nodiscard]] int countIn(std::size_t block) const;

    int last_;
    std::uint16_t default_;
    std::vector<Block> blocks_;
};

}  // namespace mergeloom::embedded
