#pragma once

#include "base/Record.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace mergeloom {

/// Receives the records of the data, one after the other. May raise any error, which ends the reading.
using RecordHandler = std::function<void(Record&)>;

/// Builds the records of the data from a parser's events and hands over each one when it is complete, so that
/// never more than one is in memory. Elements and attributes are found regardless of ASCII case; unknown
/// elements are passed through.
class RecordBuilder {
  public:
    explicit RecordBuilder(const RecordHandler& handler) : handler_(handler) {}

    void startElement(std::string_view localName);
    /// Adds an attribute to the element that was started last.
    void addAttribute(std::string_view localName, std::string_view value);
    void endElement();
    void addText(std::string_view text);

    /// Returns the approximate size in bytes of what was read, written without entities.
    [[nodiscard]] std::size_t size() const { return size_; }

  private:
    enum class Kind { Other, Record, Control, Display, Bound, Rich, Plain, Image, Markup };
    struct Frame {
        Kind kind = Kind::Other;
        bool hasElements = false;
        std::string text{};
        Record record{};
        RecordControl control{};
    };

    [[nodiscard]] Kind kindOf(std::string_view localName) const;
    [[nodiscard]] Kind innerKind() const { return frames_.empty() ? Kind::Other : frames_.back().kind; }
    Frame* enclosing(Kind kind);
    void startMarkup(std::string_view localName);
    void closeStartTag();
    void finish(Frame& frame);
    void finishRecord(Frame& frame);
    void finishControl(Frame& frame);
    void finishValue(Frame& frame);

    const RecordHandler& handler_;
    std::vector<Frame> frames_;
    bool startTagIsOpen_ = false;  ///< of markup inside rich text
    std::size_t size_ = 0;
};

}  // namespace mergeloom
