#include "office/embedded/sheet/AxisSizes.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace mergeloom::embedded {

namespace {

std::uint16_t bounded(int pixels) {
    return static_cast<std::uint16_t>(std::clamp(pixels, 0, int{std::numeric_limits<std::uint16_t>::max()}));
}

}  // namespace

AxisSizes::AxisSizes(int last, int defaultPixels)
    : last_(last),
      default_(bounded(defaultPixels)),
      blocks_(static_cast<std::size_t>((last + kBlockSize - 1) / kBlockSize)) {
    for (std::size_t i = 0; i < blocks_.size(); ++i)
        blocks_[i].sum = std::int64_t{countIn(i)} * default_;
}

int AxisSizes::size(int index) const {
    return sizeIn(blocks_[static_cast<std::size_t>((index - 1) / kBlockSize)], (index - 1) % kBlockSize);
}

void AxisSizes::setSize(int index, int pixels) {
    if (size(index) == bounded(pixels)) return;
    const auto number = static_cast<std::size_t>((index - 1) / kBlockSize);
    Block& block = blocks_[number];
    if (!block.sizes) {
        const auto count = static_cast<std::size_t>(countIn(number));
        block.sizes = std::make_unique<std::vector<std::uint16_t>>(count, default_);
    }
    std::uint16_t& size = (*block.sizes)[static_cast<std::size_t>((index - 1) % kBlockSize)];
    block.sum -= size;
    size = bounded(pixels);
    block.sum += size;
}

std::int64_t AxisSizes::before(int index) const {
    const int count = index - 1;
    const auto whole = static_cast<std::size_t>(count / kBlockSize);
    std::int64_t sum = 0;
    for (std::size_t i = 0; i < whole; ++i)
        sum += blocks_[i].sum;
    const int rest = count % kBlockSize;
    if (rest == 0) return sum;
    const Block& block = blocks_[whole];
    if (!block.sizes) return sum + std::int64_t{rest} * default_;
    return std::accumulate(block.sizes->begin(), block.sizes->begin() + rest, sum);
}

int AxisSizes::at(std::int64_t pixel) const {
    std::size_t number = 0;
    while (number < blocks_.size() && pixel >= blocks_[number].sum)
        pixel -= blocks_[number++].sum;
    if (number == blocks_.size()) return last_;
    int offset = 0;
    while (pixel >= sizeIn(blocks_[number], offset))
        pixel -= sizeIn(blocks_[number], offset++);
    return static_cast<int>(number) * kBlockSize + offset + 1;
}

int AxisSizes::sizeIn(const Block& block, int offset) const {
    return block.sizes ? (*block.sizes)[static_cast<std::size_t>(offset)] : default_;
}

int AxisSizes::countIn(std::size_t block) const {
    return std::min(kBlockSize, last_ - static_cast<int>(block) * kBlockSize);
}

}  // namespace mergeloom::embedded
