#pragma once

#include "office/libreoffice/session/OfficeConnection.h"
#include "office/libreoffice/session/OfficeFilters.h"

#include <com/sun/star/beans/PropertyValue.hpp>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace mergeloom::libreoffice {

/// The password of one file in a format. Packages of Open Packaging are encrypted as a whole, so that their
/// content can be revised in between; other formats are encrypted by the office's export, if at all.
class FilePassword {
  public:
    /// Files are not encrypted if the password is empty.
    FilePassword(OfficeConnection& connection, SaveFormat format, std::string password);

    /// Returns true if files of the format can be encrypted.
    [[nodiscard]] static bool covers(OfficeConnection& connection, SaveFormat format);

    /// Adds the options with which the office writes an encrypted file.
    void addTo(std::vector<css::beans::PropertyValue>& properties) const;
    /// Returns the decrypted content of a file that the office wrote. Files of other formats than Open
    /// Packaging stay encrypted.
    [[nodiscard]] std::string opened(const std::string& file) const;
    /// Returns the file with the content, encrypted if there is a password.
    [[nodiscard]] std::string sealed(const std::string& content) const;
    /// Returns a file with its content revised. The bytes in errors are encrypted, too.
    [[nodiscard]] std::string revised(const std::string& file,
                                      const std::function<std::string(std::string content)>& revise) const;

  private:
    OfficeConnection& connection_;
    std::string password_;
    bool isPackage_;
};

/// The content of an encrypted package, and the password that opened it.
struct UnlockedPackage {
    std::string bytes;
    std::string password;
};

/// Returns the package in an encrypted file, or none for other files. Raises PasswordRequired, with the path,
/// if the password is wrong.
std::optional<UnlockedPackage> unlockedPackage(OfficeConnection& connection, const std::string& path,
                                               const std::string& bytes, const std::string& password);

}  // namespace mergeloom::libreoffice
