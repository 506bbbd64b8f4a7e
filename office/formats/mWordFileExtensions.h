#pragma once

#include "office/formats/mFileExtensions.h"

#include <string>
#include <string_view>

/// Word's file formats. A format is its WdSaveFormat number; the numbers go to SaveAs unchanged.
namespace mergeloom {

inline constexpr int kWordDocument97 = 0;
inline constexpr int kWordDocument = 12;
/// Denotes the format in which Word saves by default.
inline constexpr int kWordDefaultFormat = 16;

/// Returns the extension of the format; empty when it has none or is unknown. Format 16 has the extension of
/// defaultFormat, which wordDefaultSaveFormat returns for the Word at hand.
std::string wordExtension(int format, LeadingDot dot = LeadingDot::Without,
                          int defaultFormat = kWordDocument);

/// Returns the first offered format whose first or second extension is the given one (without a dot, in the
/// same letter case); 0 when there is none.
int wordFormatByExtension(std::string_view extension);

/// Returns true when an offered format has the extension, which wordFormatByExtension's 0 leaves open.
bool isWordExtension(std::string_view extension);

/// Returns the format of a value of Word's option DefaultSaveFormat. For an unknown or empty value it is the
/// document format of that version (its major number).
int wordDefaultSaveFormat(std::string_view defaultSaveFormat, int wordVersion);

}  // namespace mergeloom
