#include "office/libreoffice/word/InlinePicture.h"

#include "base/AutomationError.h"
#include "base/Paths.h"
#include "office/libreoffice/session/UnoText.h"
#include "office/libreoffice/word/TextArea.h"

#include <algorithm>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/graphic/GraphicProvider.hpp>
#include <com/sun/star/io/SequenceInputStream.hpp>
#include <com/sun/star/text/TextContentAnchorType.hpp>

namespace mergeloom::libreoffice {

namespace {

constexpr std::int64_t kEmuPerHundredthOfMillimetre = 360;

std::int32_t hundredths(Emu length) {
    const std::int64_t rounded =
        (length.value + kEmuPerHundredthOfMillimetre / 2) / kEmuPerHundredthOfMillimetre;
    return static_cast<std::int32_t>(std::max<std::int64_t>(1, rounded));
}

Reference<css::graphic::XGraphic> readGraphic(OfficeConnection& connection, const std::string& bytes) {
    const css::uno::Sequence<sal_Int8> sequence(reinterpret_cast<const sal_Int8*>(bytes.data()),
                                                static_cast<sal_Int32>(bytes.size()));
    css::beans::PropertyValue stream;
    stream.Name = "InputStream";
    stream.Value <<= css::io::SequenceInputStream::createStreamFromSequence(connection.context(), sequence);
    const css::uno::Sequence<css::beans::PropertyValue> properties(&stream, 1);
    return css::graphic::GraphicProvider::create(connection.context())->queryGraphic(properties);
}

}  // namespace

InlinePicture::InlinePicture(WriterContent& content, const std::string& fileName)
    : content_(content),
      bytes_(content.files().read(fileName)),
      file_(opc::PictureFile::read(bytes_, fileName)),
      name_(fileName) {}

void InlinePicture::insert(WriterStory& story, CharacterPosition position) const {
    const Reference<css::graphic::XGraphic> graphic = readGraphic(content_.session().connection(), bytes_);
    if (!graphic.is()) {
        throw AutomationError(
            kFileCouldNotBeRead,
            "The file '" + name_ + "' could not be read: LibreOffice cannot show the picture.");
    }
    const CursorReference& cursor = content_.cursorOver(story, {position, position});
    Emu width = file_.naturalWidth();
    Emu height = file_.naturalHeight();
    const Emu area = textAreaWidth(content_.model(), cursor);
    if (width > area) {
        const double scale = static_cast<double>(area.value) / static_cast<double>(width.value);
        height = {
            std::max<std::int64_t>(1, static_cast<std::int64_t>(static_cast<double>(height.value) * scale))};
        width = area;
    }
    const Reference<css::uno::XInterface> made =
        content_.model().factory->createInstance("com.sun.star.text.TextGraphicObject");
    const Reference<css::beans::XPropertySet> properties(made, UNO_QUERY_THROW);
    properties->setPropertyValue("AnchorType", css::uno::Any(css::text::TextContentAnchorType_AS_CHARACTER));
    properties->setPropertyValue("Graphic", css::uno::Any(graphic));
    properties->setPropertyValue("Width", css::uno::Any(hundredths(width)));
    properties->setPropertyValue("Height", css::uno::Any(hundredths(height)));
    const TextReference& text = story.textOf(story.map().placeOf(position).text);
    text->insertTextContent(rangeOf(cursor), Reference<css::text::XTextContent>(made, UNO_QUERY_THROW),
                            false);
}

}  // namespace mergeloom::libreoffice
