#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace mergeloom {

struct Record;

/// The values of one control in one record of the database. A text is empty when the record does not have it.
struct RecordControl {
    std::string name{};
    std::string displayValue{};  ///< as the database shows it
    std::string boundValue{};    ///< as the database stores it
    std::string richText{};      ///< the small HTML of a rich text field
    std::string plainText{};     ///< the same without its markup
    std::string image{};         ///< the path of a picture
    bool isSubform = false;      ///< true for a control with records, even if there are none
    /// The records of a subform. Has no initializer, since the type Record is incomplete here.
    std::vector<Record> records;

    /// Returns the text that the control shows, without formatting.
    [[nodiscard]] const std::string& shownText() const {
        return displayValue.empty() ? plainText : displayValue;
    }
};

/// A record of the database: the values of its controls in the order of the data.
struct Record {
    std::vector<RecordControl> controls{};

    /// Returns the first control of exactly that name, or null. The hint is the position of the control in
    /// the record before, where it nearly always is again; it is updated.
    [[nodiscard]] const RecordControl* find(std::string_view name, std::size_t& hint) const {
        if (hint < controls.size() && controls[hint].name == name) return &controls[hint];
        for (std::size_t position = 0; position < controls.size(); ++position) {
            if (controls[position].name != name) continue;
            hint = position;
            return &controls[position];
        }
        return nullptr;
    }
    [[nodiscard]] const RecordControl* find(std::string_view name) const {
        std::size_t hint = 0;
        return find(name, hint);
    }
};

}  // namespace mergeloom
