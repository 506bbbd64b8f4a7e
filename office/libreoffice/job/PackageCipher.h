#pragma once

#include "office/libreoffice/session/Uno.h"

#include <com/sun/star/uno/XComponentContext.hpp>
#include <optional>
#include <rtl/ustring.hxx>
#include <string>

namespace mergeloom::libreoffice {

/// Encrypts and decrypts packages of Open Packaging with LibreOffice's own means ([MS-OFFCRYPTO] 2.3.4). Must
/// run inside the office, since the calls that it needs cannot be made from another process. The members
/// raise UNO's exceptions.
class PackageCipher {
  public:
    using Bytes = css::uno::Sequence<sal_Int8>;

    explicit PackageCipher(const Reference<css::uno::XComponentContext>& office) : office_(office) {}

    /// Returns the package in an encrypted file, or none for other files and wrong passwords.
    [[nodiscard]] std::optional<Bytes> decrypted(const Bytes& file, const rtl::OUString& password) const;
    /// Returns the encrypted file of a package. Raises RuntimeException if the office cannot encrypt.
    [[nodiscard]] Bytes encrypted(const Bytes& package, const rtl::OUString& password) const;

  private:
    Reference<css::uno::XComponentContext> office_;
};

}  // namespace mergeloom::libreoffice
