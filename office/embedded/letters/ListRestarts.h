#pragma once

#include "office/opc/Package.h"

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <utility>

namespace mergeloom::embedded {

/// Restarts the lists of a template in each section of one document for all records, by further instances of
/// the lists (ECMA-376 Part 1, 17.9.15 and 17.9.27).
class ListRestarts {
  public:
    /// Word numbers the instances of lists up to this one.
    static constexpr std::int64_t kMaxLists = 2046;

    explicit ListRestarts(opc::Package& package);

    /// Returns true for the id of a numbered list.
    [[nodiscard]] bool counts(const std::string& id) const { return models_.contains(id); }
    /// Returns the level of a list that is linked to a style, or an empty text if there is none.
    [[nodiscard]] std::string levelOf(const std::string& id, const std::string& style) const;
    /// Returns true for the id of a list that counts, and begins to restart it.
    bool use(const std::string& id);
    /// Returns the id of a list in a section, counted from 0. Lists beyond kMaxLists are not restarted.
    std::string idIn(std::int64_t section, const std::string& id);
    /// Returns true if a list could not be restarted.
    [[nodiscard]] bool isExhausted() const { return isExhausted_; }

    /// Returns the name of the part with the lists; empty if no list was restarted.
    [[nodiscard]] std::string partName() const { return restarts_.empty() ? std::string() : partName_; }
    /// Returns the XML of the part with the restarted lists, and discards them.
    std::string takeXml();

  private:
    std::string partName_;
    std::string xml_;            ///< of the part
    std::size_t insertion_ = 0;  ///< the position in it after the last list
    std::int64_t highest_ = 0;   ///< the highest id of a list
    /// The XML of further instances of the lists that count, with kNewId in place of the id, by their ids.
    std::map<std::string, std::string> models_;
    std::map<std::pair<std::string, std::string>, std::string> levels_;  ///< by the ids of lists and styles
    std::map<std::string, std::int64_t> used_;  ///< the numbers of the lists that are used, from 1
    std::map<std::int64_t, std::string> restarts_;
    bool isExhausted_ = false;
};

}  // namespace mergeloom::embedded
