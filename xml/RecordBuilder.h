#pragma once

#include "base/Record.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace mergeloom {

/// Receives the records one after the other. An error that it raises ends the reading.
using RecordHandler = std::function<void(Record&)>;

/// Builds records from the events of a parser and passes each one on when it is complete, so that only one is
/// in memory at a time. Ignores the ASCII case of elements and attributes, and skips unknown elements but not
/// their children.
class RecordBuilder {
  public:
    explicit RecordBuilder(const RecordHandler& handler) : handler_(handler) {}

    void startElement(std::string_view localName);
    /// Adds an attribute to the most recently started element.
    void addAttribute(std::string_view localName, std::string_view value);
    void endElement();
    void addText(std::string_view text);

    /// Returns the approximate size in bytes of the content read so far, with entities replaced.
    [[nodiscard]] std::size_t size() const { return size_; }

  private:
    enum class Kind { Other, Records, Record, Control, Display, Bound, Rich, Plain, Image, Markup, InValue };
    struct Element {
        Kind kind = Kind::Other;
        bool hasElements = false;
    };

    [[nodiscard]] Kind kindOf(std::string_view localName) const;
    [[nodiscard]] Kind innerKind() const { return elements_.empty() ? Kind::Other : elements_.back().kind; }
    void startMarkup(std::string_view localName);
    void closeStartTag();
    void endMarkup();
    void finishRecord();
    void finishControl();
    void finishValue(const Element& element);

    const RecordHandler& handler_;
    std::vector<Element> elements_;
    // The open records, controls and values, the innermost last.
    std::vector<Record> records_;
    std::vector<RecordControl> controls_;
    std::vector<std::string> values_;
    std::vector<std::string> markup_;  ///< the names of elements inside rich text
    /// The number of open controls at the start of each open record. A control belongs to the innermost
    /// record.
    std::vector<std::size_t> controlsAround_;
    bool startTagIsOpen_ = false;  ///< of markup inside rich text
    std::size_t size_ = 0;
};

}  // namespace mergeloom
