#include "office/opc/ByteOrder.h"
#include "office/opc/PictureHeader.h"

#include <map>

namespace mergeloom::opc {

namespace {

// Tags of the first directory (Exif 2.3, 4.6.4; TIFF 6.0, section 8).
constexpr std::uint16_t kOrientation = 0x0112;
constexpr std::uint16_t kHorizontalResolution = 0x011A;
constexpr std::uint16_t kVerticalResolution = 0x011B;
constexpr std::uint16_t kResolutionUnit = 0x0128;

constexpr std::uint16_t kShortType = 3;
constexpr std::uint16_t kRationalType = 5;
constexpr int kLastOrientation = 8;
constexpr std::int64_t kUnitInch = 2;
constexpr std::int64_t kUnitCentimetre = 3;

/// The first directory of a TIFF structure: its short and rational numbers by tag.
class TiffDirectory {
  public:
    explicit TiffDirectory(std::string_view tiff) : tiff_(tiff), little_(tiff.starts_with("II")) {
        if (!little_ && !tiff.starts_with("MM")) return;
        const std::size_t start = number<std::uint32_t>(4).value_or(0);
        const std::size_t count = number<std::uint16_t>(start).value_or(0);
        constexpr std::size_t kEntryLength = 12;
        for (std::size_t i = 0; i < count; ++i)
            readEntry(start + 2 + i * kEntryLength);
    }

    /// In hundredths; zero when the tag is missing.
    [[nodiscard]] std::int64_t hundredths(std::uint16_t tag) const {
        const auto found = hundredths_.find(tag);
        return found == hundredths_.end() ? 0 : found->second;
    }

  private:
    template <typename Number>
    [[nodiscard]] std::optional<Number> number(std::size_t offset) const {
        if (offset > tiff_.size() || tiff_.size() - offset < sizeof(Number)) return std::nullopt;
        return little_ ? littleEndianAt<Number>(tiff_, offset) : bigEndianAt<Number>(tiff_, offset);
    }

    void readEntry(std::size_t entry) {
        const auto tag = number<std::uint16_t>(entry);
        const auto type = number<std::uint16_t>(entry + 2);
        if (!tag || !type) return;
        if (*type == kShortType) {
            hundredths_[*tag] = std::int64_t{100} * number<std::uint16_t>(entry + 8).value_or(0);
        }
        if (*type == kRationalType)
            hundredths_[*tag] = rationalAt(number<std::uint32_t>(entry + 8).value_or(0));
    }

    [[nodiscard]] std::int64_t rationalAt(std::size_t offset) const {
        const std::int64_t numerator = number<std::uint32_t>(offset).value_or(0);
        const std::int64_t denominator = number<std::uint32_t>(offset + 4).value_or(0);
        return denominator == 0 ? 0 : numerator * 100 / denominator;
    }

    std::string_view tiff_;
    bool little_;
    std::map<std::uint16_t, std::int64_t> hundredths_;
};

}  // namespace

void readExif(std::string_view tiff, PictureHeader& header) {
    const TiffDirectory directory(tiff);
    const std::int64_t orientation = directory.hundredths(kOrientation) / 100;
    if (orientation >= 1 && orientation <= kLastOrientation)
        header.orientation = static_cast<int>(orientation);
    if (header.resolution) return;
    const std::int64_t unit = directory.hundredths(kResolutionUnit) / 100;
    if (unit != kUnitInch && unit != kUnitCentimetre) return;
    const auto perInch = [&](std::uint16_t tag) {
        const std::int64_t hundredths = directory.hundredths(tag);
        const std::int64_t inInches = unit == kUnitCentimetre ? hundredths * 254 / 100 : hundredths;
        return (inInches + 50) / 100;
    };
    header.resolution = {perInch(kHorizontalResolution), perInch(kVerticalResolution)};
}

}  // namespace mergeloom::opc
