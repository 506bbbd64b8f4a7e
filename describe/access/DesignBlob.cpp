#include "describe/access/DesignBlob.h"

#include "describe/access/AccessFile.h"

#include <cstddef>
#include <utility>

namespace mergeloom::describe::access {

namespace {

// The stream has a header, the form and a trailer. An object is a list of properties, in the order of their
// slots, and may be followed by its children: one after kOnlyChild, or several after kFirstChild and their
// number.
constexpr std::size_t kHeaderSize = 10;
constexpr std::size_t kTrailerSize = 4;
enum Marker : std::uint32_t { kNextChild = 0xFD, kOnlyChild = 0xFE, kFirstChild = 0xFF };

constexpr std::size_t kWordSize = 2;
constexpr std::size_t kNumberSize = 4;
constexpr std::uint32_t kMaxType = 0xFFFF;
constexpr int kMaxDepth = 32;

enum ValueType : std::uint32_t { kText = 10, kLongText = 12 };

class DesignReader {
  public:
    explicit DesignReader(Bytes blob) : rest_(blob) {
        if (blob.size() < kHeaderSize + kTrailerSize) raiseDamaged();
        rest_ = blob.subspan(kHeaderSize);
    }

    DesignObject read() {
        DesignObject form = object(0, 0);
        if (rest_.size() != kTrailerSize) raiseDamaged();
        return form;
    }

  private:
    std::uint32_t take(std::size_t size) { return static_cast<std::uint32_t>(unsignedOf(takeBytes(size))); }

    Bytes takeBytes(std::size_t size) {
        if (rest_.size() < size) raiseDamaged();
        const Bytes taken = rest_.first(size);
        rest_ = rest_.subspan(size);
        return taken;
    }

    /// Returns the slot of the next property or a marker. No slot has the number of a marker.
    [[nodiscard]] std::uint32_t next() const {
        return static_cast<std::uint32_t>(unsignedOf(rest_.first(kNumberSize)));
    }
    [[nodiscard]] bool isAtEnd() const { return rest_.size() <= kTrailerSize; }
    [[nodiscard]] bool isAtMarker() const { return next() >= kNextChild && next() <= kFirstChild; }

    DesignObject object(int kind, int depth) {
        if (depth > kMaxDepth) raiseDamaged();
        DesignObject object{kind};
        readProperties(object);
        if (isAtEnd() || next() == kNextChild) return object;
        const std::uint32_t marker = take(kNumberSize);
        const std::uint32_t count = marker == kFirstChild ? take(kWordSize) : 1;
        for (std::uint32_t number = 0; number < count; ++number) {
            if (number > 0 && take(kNumberSize) != kNextChild) raiseDamaged();
            const int childKind = static_cast<int>(take(kWordSize));
            object.children.push_back(this->object(childKind, depth + 1));
        }
        return object;
    }

    void readProperties(DesignObject& object) {
        std::uint32_t previous = 0;
        for (bool isFirst = true; !isAtEnd() && !isAtMarker(); isFirst = false) {
            DesignProperty property;
            property.slot = take(kNumberSize);
            const int code = static_cast<int>(take(kWordSize));
            property.type = take(kNumberSize);
            takeBytes(kNumberSize);
            property.value = takeBytes(take(kNumberSize));
            if ((!isFirst && property.slot <= previous) || property.type > kMaxType) raiseDamaged();
            previous = property.slot;
            object.properties.emplace(code, property);
        }
    }

    Bytes rest_;
};

std::string textIn(const DesignProperty& property) {
    const bool isText = property.type == kText || property.type == kLongText;
    if (!isText || property.value.size() % 2 != 0) raiseDamaged();
    std::string text = textOf(property.value);
    while (text.ends_with('\0'))
        text.pop_back();
    return text;
}

}  // namespace

std::string DesignObject::text(int code) const {
    const auto found = properties.find(code);
    return found == properties.end() ? std::string() : textIn(found->second);
}

std::string DesignObject::textInSlot(std::uint32_t slot) const {
    for (const auto& [code, property] : properties) {
        if (property.slot == slot) return textIn(property);
    }
    return {};
}

int DesignObject::number(int code, int otherwise) const {
    const auto found = properties.find(code);
    if (found == properties.end()) return otherwise;
    if (found->second.value.size() > kNumberSize) raiseDamaged();
    return static_cast<int>(unsignedOf(found->second.value));
}

DesignObject readDesign(Bytes blob) {
    return DesignReader(blob).read();
}

}  // namespace mergeloom::describe::access
