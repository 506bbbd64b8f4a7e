#include "doubles/FaultyFileStore.h"
#include "doubles/MemoryFileStore.h"
#include "office/libreoffice/session/LibreOfficeSession.h"
#include "office/libreoffice/session/UnoText.h"

#include <gtest/gtest.h>

#include <com/sun/star/text/XTextDocument.hpp>

namespace mergeloom::libreoffice {

namespace {

TEST(KeptCopy, IsStillDueAfterAFullDisk) {
    MemoryFileStore disk;
    FaultyFileStore full(disk, 1);
    LibreOfficeSession session(full, TimeBounds{}, OfficeMode::Hidden);
    const OpenDocument letter(session.files(), session.files().create(DocumentKind::Word));
    const auto hasChanges = [&] {
        return session.connection().call([&] { return session.files().hasChangesToKeep(letter.get()); });
    };
    EXPECT_FALSE(hasChanges());
    session.connection().call([&] {
        const Reference<css::text::XTextDocument> document(letter.get(), UNO_QUERY_THROW);
        document->getText()->setString("Dear");
    });
    EXPECT_TRUE(hasChanges());
    EXPECT_THROW(session.files().keepCopy(letter.get(), "kept.odt"), AutomationError);
    EXPECT_TRUE(hasChanges());
    session.files().keepCopy(letter.get(), "kept.odt");
    EXPECT_FALSE(hasChanges());
    EXPECT_TRUE(disk.fileExists("kept.odt"));
}

}  // namespace

}  // namespace mergeloom::libreoffice
