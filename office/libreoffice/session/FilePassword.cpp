#include "office/libreoffice/session/FilePassword.h"

#include "office/libreoffice/session/UnoProperty.h"
#include "office/libreoffice/session/UnoText.h"
#include "office/model/OfficeDocument.h"
#include "office/model/PasswordRequired.h"

#include <com/sun/star/beans/NamedValue.hpp>
#include <com/sun/star/container/XNameAccess.hpp>
#include <com/sun/star/lang/XMultiComponentFactory.hpp>
#include <string_view>
#include <utility>

namespace mergeloom::libreoffice {

namespace {

using namespace std::string_view_literals;

/// The beginning of a compound file ([MS-CFB] 2.2), and the entry of its directory for the stream with an
/// encrypted package ([MS-CFB] 2.6.1, [MS-OFFCRYPTO] 2.3.4.4): its name in 64 bytes, their number, its kind.
constexpr std::string_view kCompoundFile = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"sv;
constexpr std::string_view kEncryptedPackage =
    "E\0n\0c\0r\0y\0p\0t\0e\0d\0P\0a\0c\0k\0a\0g\0e\0"
    "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"
    "\x22\0\x02"sv;

/// The password of workbooks that are encrypted without one ([MS-OFFCRYPTO] 2.4.2.3).
constexpr const char* kDefaultPassword = "VelvetSweatshop";

/// The office's flag of filters that write encrypted files.
constexpr sal_Int32 kEncrypts = 0x01000000;

bool isPackageFormat(SaveFormat format) {
    const FileFormat* const row = findFormat(format);
    return row != nullptr && row->engine;
}

bool encrypts(OfficeConnection& connection, const std::string& filter) {
    return connection.call([&] {
        const Reference<css::container::XNameAccess> filters(
            connection.context()->getServiceManager()->createInstanceWithContext(
                "com.sun.star.document.FilterFactory", connection.context()),
            UNO_QUERY_THROW);
        css::uno::Sequence<css::beans::PropertyValue> values;
        filters->getByName(toUno(filter)) >>= values;
        sal_Int32 flags = 0;
        for (const css::beans::PropertyValue& value : values)
            if (value.Name == "Flags") value.Value >>= flags;
        return (flags & kEncrypts) != 0;
    });
}

/// Returns the options of a password for the office's export to Open Packaging, which ignores a plain
/// password.
css::uno::Sequence<css::beans::NamedValue> packageEncryption(const std::string& password) {
    css::uno::Sequence<css::beans::NamedValue> values(2);
    values.getArray()[0] = {"CryptoType", css::uno::Any(OUString("StrongEncryptionDataSpace"))};
    values.getArray()[1] = {"OOXPassword", css::uno::Any(toUno(password))};
    return values;
}

}  // namespace

FilePassword::FilePassword(OfficeConnection& connection, SaveFormat format, std::string password)
    : connection_(connection), password_(std::move(password)), isPackage_(isPackageFormat(format)) {
    if (!password_.empty() && !covers(connection, format)) password_.clear();
}

bool FilePassword::covers(OfficeConnection& connection, SaveFormat format) {
    if (isPackageFormat(format)) return true;
    const std::optional<OfficeFilter> filter = filterFor(format);
    return filter && encrypts(connection, std::string(filter->name));
}

void FilePassword::addTo(std::vector<css::beans::PropertyValue>& properties) const {
    if (password_.empty()) return;
    properties.push_back(isPackage_ ? property("EncryptionData", packageEncryption(password_))
                                    : property("Password", toUno(password_)));
}

std::string FilePassword::opened(const std::string& file) const {
    if (password_.empty() || !isPackage_) return file;
    if (std::optional<std::string> package = connection_.decrypted(file, password_)) return *package;
    throw AutomationError(kCommandFailed, "LibreOffice cannot read the file that it has encrypted.");
}

std::string FilePassword::sealed(const std::string& content) const {
    return password_.empty() || !isPackage_ ? content : connection_.encrypted(content, password_);
}

std::string FilePassword::revised(const std::string& file,
                                  const std::function<std::string(std::string content)>& revise) const try {
    return sealed(revise(opened(file)));
} catch (const model::DifferingCopy& copy) {
    throw model::DifferingCopy(copy.description(), sealed(copy.bytes()), copy.place());
} catch (const model::LossySave& loss) {
    throw model::LossySave(loss.description(), sealed(loss.bytes()), loss.place());
}

std::optional<UnlockedPackage> unlockedPackage(OfficeConnection& connection, const std::string& path,
                                               const std::string& bytes, const std::string& password) {
    if (!bytes.starts_with(kCompoundFile) || bytes.find(kEncryptedPackage) == std::string::npos) return {};
    const std::string tried = password.empty() ? kDefaultPassword : password;
    if (std::optional<std::string> package = connection.decrypted(bytes, tried))
        return UnlockedPackage{std::move(*package), tried};
    throw model::PasswordRequired(path);
}

}  // namespace mergeloom::libreoffice
