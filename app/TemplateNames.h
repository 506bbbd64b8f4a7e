#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <unordered_set>

namespace mergeloom {

/// Names of files for objects: what files cannot be called is replaced, and names that differ in letter case
/// alone, which are one file on many disks, get a number.
class TemplateNames {
  public:
    /// The extension without its dot.
    explicit TemplateNames(const std::string& extension) : extension_("." + extension) {}

    /// The name for an object; no other object gets the same one.
    std::string nameFor(const std::string& object);

  private:
    bool take(const std::string& name);

    std::string extension_;
    std::unordered_set<std::string> taken_;                 // in folded case
    std::unordered_map<std::string, std::size_t> numbers_;  // the last one by the first name
};

}  // namespace mergeloom
