#pragma once

#include "base/FileStore.h"

#include <string>
#include <string_view>

namespace mergeloom::describe {

/// Writes XML in UTF-8. Characters that XML cannot hold and bytes that are not UTF-8 become U+FFFD.
class XmlStream {
  public:
    explicit XmlStream(ByteSink& sink) : sink_(sink) {}

    /// Writes markup as it is.
    XmlStream& markup(std::string_view xml);
    /// Writes the text of an element or, between quotation marks, that of an attribute.
    XmlStream& text(std::string_view text);
    /// Writes the buffered text to the sink.
    void flush();

    /// Returns true if a character became U+FFFD.
    [[nodiscard]] bool hasReplacements() const { return hasReplacements_; }

  private:
    void writeCodePoint(char32_t codePoint);

    ByteSink& sink_;
    std::string buffer_;
    bool hasReplacements_ = false;
};

}  // namespace mergeloom::describe
