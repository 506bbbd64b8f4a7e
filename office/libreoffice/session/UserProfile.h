#pragma once

#include <string>

namespace mergeloom::libreoffice {

/// A profile of an office in the user's configuration folder. It keeps the user's own settings of the office
/// from run to run: bars, dictionaries, corrections. Each running office has one of its own.
class UserProfile {
  public:
    /// Takes the first profile that no running office has. Makes the folder if it is not there.
    UserProfile();
    UserProfile(const UserProfile&) = delete;
    UserProfile& operator=(const UserProfile&) = delete;
    ~UserProfile();

    /// Returns the folder; empty when no folder can be written.
    [[nodiscard]] const std::string& path() const { return path_; }
    /// The processes that were started before this call share the profile: it is free when all have ended.
    void endSharing() const;

  private:
    bool take(const std::string& folder);

    std::string path_;
    int lock_ = -1;
};

}  // namespace mergeloom::libreoffice
