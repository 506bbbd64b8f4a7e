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
    // The records, controls and values that have begun and not ended, the innermost last.
    std::vector<Record> records_;
    std::vector<RecordControl> controls_;
    std::vector<std::string> values_;
    std::vector<std::string> markup_;  ///< the names of elements inside rich text
    /// The number of controls that had begun when each record began: a control belongs to the innermost
    /// record.
    std::vector<std::size_t> controlsAround_;
    bool startTagIsOpen_ = false;  ///< of markup inside rich text
    std::size_t size_ = 0;
};

}  // namespace mergeloom
