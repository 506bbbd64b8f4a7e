#include "office/libreoffice/job/PackageCipher.h"

#include <algorithm>
#include <com/sun/star/beans/NamedValue.hpp>
#include <com/sun/star/embed/OLESimpleStorage.hpp>
#include <com/sun/star/io/SequenceInputStream.hpp>
#include <com/sun/star/io/SequenceOutputStream.hpp>
#include <com/sun/star/io/TempFile.hpp>
#include <com/sun/star/lang/XMultiComponentFactory.hpp>
#include <com/sun/star/packages/XPackageEncryption.hpp>
#include <com/sun/star/uno/RuntimeException.hpp>

namespace mergeloom::libreoffice {

namespace {

using Bytes = PackageCipher::Bytes;
using Context = Reference<css::uno::XComponentContext>;
using Encryption = Reference<css::packages::XPackageEncryption>;
using Streams = css::uno::Sequence<css::beans::NamedValue>;

constexpr const char* kPackage = "EncryptedPackage";
constexpr const char* kInfo = "EncryptionInfo";

/// Returns an encryption that uses the algorithm of the file, and the office's default for new files.
Encryption makeEncryption(const Context& office) {
    return {office->getServiceManager()->createInstanceWithContext(
                "com.sun.star.comp.oox.crypto.StrongEncryptionDataSpace", office),
            UNO_QUERY_THROW};
}

Reference<css::io::XInputStream> streamOf(const Context& office, const Bytes& bytes) {
    return {css::io::SequenceInputStream::createStreamFromSequence(office, bytes), UNO_QUERY_THROW};
}

Bytes contentOf(const Reference<css::io::XInputStream>& stream) {
    constexpr sal_Int32 kPiece = 1 << 20;
    Bytes content;
    Bytes piece;
    while (stream->readBytes(piece, kPiece) > 0) {
        const sal_Int32 length = content.getLength();
        content.realloc(length + piece.getLength());
        std::copy(piece.begin(), piece.end(), content.getArray() + length);
    }
    return content;
}

Reference<css::io::XInputStream> openStream(const Reference<css::embed::XOLESimpleStorage>& storage,
                                            const char* name) {
    const Reference<css::io::XStream> stream(storage->getByName(rtl::OUString::createFromAscii(name)),
                                             UNO_QUERY_THROW);
    return stream->getInputStream();
}

bool isEncryptedPackage(const Reference<css::embed::XOLESimpleStorage>& storage) {
    return storage->hasByName(rtl::OUString::createFromAscii(kPackage)) &&
           storage->hasByName(rtl::OUString::createFromAscii(kInfo));
}

Bytes withStreams(const Context& office, const Streams& streams) {
    const Reference<css::io::XTempFile> file = css::io::TempFile::create(office);
    const auto storage = css::embed::OLESimpleStorage::createFromStream(
        office, Reference<css::io::XStream>(file, UNO_QUERY_THROW), true);
    for (const css::beans::NamedValue& stream : streams)
        storage->insertByName(stream.Name, css::uno::Any(streamOf(office, stream.Value.get<Bytes>())));
    storage->commit();
    file->seek(0);
    return contentOf(file->getInputStream());
}

}  // namespace

std::optional<Bytes> PackageCipher::decrypted(const Bytes& file, const rtl::OUString& password) const {
    const auto storage =
        css::embed::OLESimpleStorage::createFromInputStream(office_, streamOf(office_, file), true);
    if (!isEncryptedPackage(storage)) return {};
    css::beans::NamedValue info;
    info.Name = rtl::OUString::createFromAscii(kInfo);
    info.Value <<= contentOf(openStream(storage, kInfo));
    const Encryption encryption = makeEncryption(office_);
    if (!encryption->readEncryptionInfo(Streams(&info, 1)) || !encryption->generateEncryptionKey(password))
        return {};
    const auto package = css::io::SequenceOutputStream::create(office_);
    Reference<css::io::XOutputStream> sink(package, UNO_QUERY_THROW);
    if (!encryption->decrypt(openStream(storage, kPackage), sink) || !encryption->checkDataIntegrity())
        return {};
    return package->getWrittenBytes();
}

Bytes PackageCipher::encrypted(const Bytes& package, const rtl::OUString& password) const {
    const Encryption encryption = makeEncryption(office_);
    if (!encryption->setupEncryption(encryption->createEncryptionData(password)))
        throw css::uno::RuntimeException("LibreOffice does not encrypt this file.");
    return withStreams(office_, encryption->encrypt(streamOf(office_, package)));
}

}  // namespace mergeloom::libreoffice
