#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace mergeloom::embedded {

/// Copies a text with pieces of it replaced. The pieces are told in their order.
class XmlSplicer {
  public:
    XmlSplicer(std::string_view source, std::size_t expectedGrowth) : source_(source) {
        result_.reserve(source.size() + expectedGrowth);
    }

    /// Replaces the bytes from begin to end; none are replaced where the two are the same.
    void replace(std::size_t begin, std::size_t end, std::string_view text) {
        result_.append(source_, copied_, begin - copied_);
        result_.append(text);
        copied_ = end;
    }

    std::string finish() {
        replace(source_.size(), source_.size(), {});
        return std::move(result_);
    }

  private:
    std::string_view source_;
    std::string result_;
    std::size_t copied_ = 0;
};

}  // namespace mergeloom::embedded
