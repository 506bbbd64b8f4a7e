#pragma once

#include <string_view>

/// Compound files ([MS-CFB]): the container of the binary documents before Office Open XML and, today, of
/// encrypted packages. They are only recognised here, so that the refusal can say what the file is.
namespace mergeloom::opc {

bool isCompoundFile(std::string_view bytes);

/// True when the compound file's directory holds the stream "EncryptedPackage" ([MS-OFFCRYPTO] 2.3.4.4).
bool holdsEncryptedPackage(std::string_view bytes);

}  // namespace mergeloom::opc
