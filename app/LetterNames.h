#pragma once

#include "base/Record.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace mergeloom {

/// A pattern for the paths of letters, in which "{OrderNumber}" is replaced by the value of that control.
class LetterNames {
  public:
    /// Raises kOptionNotUnderstood for a brace without its counterpart.
    explicit LetterNames(const std::string& pattern);

    /// Returns true if the pattern contains a control, so that each record has a file of its own.
    [[nodiscard]] bool dependOnRecord() const { return pieces_.size() > 1; }
    [[nodiscard]] const std::vector<std::string>& controls() const { return controls_; }

    /// Returns the path for a record. Raises kNotAvailable, with the number of the record from 1, for a
    /// control without a value and for a value that no file name can hold.
    [[nodiscard]] std::string pathFor(const Record& record, std::size_t number) const;

  private:
    void checkParts(const std::string& path, std::size_t number) const;

    std::string pattern_;
    // The texts before, between and after the controls.
    std::vector<std::string> pieces_;
    std::vector<std::string> controls_;
};

/// Finds records that may have the same path. Stores 16 bytes for each record in place of its path, since a
/// run may write a hundred thousand letters.
class PathFingerprints {
  public:
    void note(const std::string& path, std::size_t number);
    /// Returns the numbers of the records that share their fingerprint with another one, in ascending order.
    /// The paths of all other records are unique.
    [[nodiscard]] std::vector<std::size_t> suspects();

  private:
    std::vector<std::pair<std::size_t, std::size_t>> noted_;  // fingerprint and number
};

/// Detects records with the same file name. Letter case is ignored, since it is on many disks.
class TakenNames {
  public:
    /// Raises kNotAvailable if another record has the path.
    void take(const std::string& path, std::size_t number);

  private:
    std::unordered_map<std::string, std::size_t> numbers_;
};

}  // namespace mergeloom
