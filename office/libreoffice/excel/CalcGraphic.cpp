#include "office/libreoffice/excel/CalcGraphic.h"

#include "base/AutomationError.h"
#include "office/opc/PictureFile.h"

#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/graphic/GraphicProvider.hpp>
#include <com/sun/star/io/SequenceInputStream.hpp>

namespace mergeloom::libreoffice {

namespace {

css::uno::Sequence<sal_Int8> sequenceOf(const std::string& bytes) {
    return {reinterpret_cast<const sal_Int8*>(bytes.data()), static_cast<sal_Int32>(bytes.size())};
}

Reference<css::graphic::XGraphic> decode(OfficeConnection& connection, const std::string& bytes) try {
    return connection.call([&] {
        css::beans::PropertyValue input;
        input.Name = "InputStream";
        input.Value <<=
            css::io::SequenceInputStream::createStreamFromSequence(connection.context(), sequenceOf(bytes));
        return css::graphic::GraphicProvider::create(connection.context())
            ->queryGraphic(css::uno::Sequence<css::beans::PropertyValue>(&input, 1));
    });
} catch (const AutomationError& error) {
    if (error.number() == kNotAvailable) throw;
    return {};
}

Points pointsOf(Emu length) {
    return {static_cast<double>(length.value) / kEmuPerPoint};
}

}  // namespace

CalcGraphic readGraphic(OfficeConnection& connection, FileStore& files, const std::string& fileName) {
    const std::string bytes = files.read(fileName);
    const auto picture = opc::PictureFile::read(bytes, fileName);
    const Reference<css::graphic::XGraphic> graphic = decode(connection, bytes);
    if (graphic.is()) return {graphic, pointsOf(picture.naturalWidth()), pointsOf(picture.naturalHeight())};
    throw AutomationError(kFileCouldNotBeRead,
                          "The file '" + fileName + "' could not be read: it is a damaged picture.");
}

}  // namespace mergeloom::libreoffice
