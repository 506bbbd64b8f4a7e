#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <unordered_set>

namespace mergeloom {

/// Makes names of files for objects: characters that a file name cannot have are replaced, and names that
/// differ in letter case alone, which are one file on many disks, get a number.
class TemplateNames {
  public:
    /// The extension has no dot.
    explicit TemplateNames(const std::string& extension) : extension_("." + extension) {}

    /// Returns the name for an object; no other object gets the same one.
    std::string nameFor(const std::string& object);

  private:
    bool take(const std::string& name);

    std::string extension_;
    std::unordered_set<std::string> taken_;                 // in folded case
    std::unordered_map<std::string, std::size_t> numbers_;  // the last one by the first name
};

/// The maximum length of a file name in bytes.
inline constexpr std::size_t kMaxFileNameLength = 255;

/// Returns the name in a form that every file system accepts: characters that Windows or POSIX refuse become
/// "_", a reserved name (CON, NUL, COM1 …) gets "_" after it, dots and blanks at the end are removed, and a
/// name longer than the given number of bytes is cut before its extension. Never empty.
std::string validFileName(const std::string& name, std::size_t longest = kMaxFileNameLength);

}  // namespace mergeloom
