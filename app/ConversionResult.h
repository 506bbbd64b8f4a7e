#pragma once

#include <string>
#include <vector>

namespace mergeloom {

/// The reasons why a field of the old kinds is left after a conversion.
enum class WhyLeft {
    NotConverted,  ///< it names no data, or cannot become a place
    InCode,        ///< it is in the code of a field that stayed, where no reader would see a place
    CodeUnknown,   ///< the office does not keep its code
};

struct LeftField {
    std::string text;  ///< its code, or when that is unknown a sentence of the office
    WhyLeft why = WhyLeft::NotConverted;
};

/// The outcome of a conversion.
struct ConversionResult {
    int fields = 0;                     ///< fields that became one or more texts with a bookmark around each
    int places = 0;                     ///< those texts
    std::vector<std::string> removed;   ///< codes of the fields that could not be converted and were removed
    std::vector<LeftField> left;        ///< the fields of the old kinds that the document still has, in order
    std::vector<std::string> refusals;  ///< why fields stayed that the document protects, a sentence each
    bool failed = false;                ///< an error ended a pass and was reported
    /// Bookmarks, in the order of their fields, that moved to a field from another place of their name. The
    /// text of that place stays.
    std::vector<std::string> movedBookmarks;
};

/// Returns the result in sentences for the user, one in a line.
std::string conversionReport(const ConversionResult& result);

}  // namespace mergeloom
