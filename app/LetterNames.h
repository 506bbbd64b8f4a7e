#pragma once

#include "base/Record.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace mergeloom {

/// The names of the files of letters: a path in which "{OrderNumber}" stands for the value of that control.
class LetterNames {
  public:
    /// Raises kOptionNotUnderstood for a brace without its counterpart.
    explicit LetterNames(const std::string& pattern);

    /// Returns whether the pattern names a control, so that records get files of their own.
    [[nodiscard]] bool dependOnRecord() const { return pieces_.size() > 1; }
    [[nodiscard]] const std::vector<std::string>& controls() const { return controls_; }

    /// Returns the path for a record. Raises kNotAvailable, with the number of the record from 1, for a
    /// control without a value and for a value that no file name can hold.
    [[nodiscard]] std::string pathFor(const Record& record, std::size_t number) const;

  private:
    void checkParts(const std::string& path, std::size_t number) const;

    std::string pattern_;
    // The texts around the controls: one more than there are controls.
    std::vector<std::string> pieces_;
    std::vector<std::string> controls_;
};

/// Finds out whether two records make one file name; names that differ in letter case alone are one file on
/// many disks.
class TakenNames {
  public:
    /// Raises kNotAvailable for a path that another record has.
    void take(const std::string& path, std::size_t number);

  private:
    std::unordered_map<std::string, std::size_t> numbers_;
};

}  // namespace mergeloom
