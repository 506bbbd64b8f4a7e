#include "RecordingErrorHandler.h"
#include "xml/COptions.h"
#include "xml/StructureDocument.h"

#include <gtest/gtest.h>

namespace mergeloom {
namespace {

struct OptionsCase {
    const char* xml;
    const char* documents;
    const char* templates;
};

TEST(Options, ReadsTheFolders) {
    const OptionsCase cases[] = {
        {"<r><Options><FileLocations DocumentsFolder='/d' TemplatesFolder='/t'/></Options></r>", "/d", "/t"},
        {"<r><x><options><y><FILELOCATIONS documentsfolder='/d'/></y></options></x></r>", "/d", ""},
        {"<r><Options><FileLocations TemplatesFolder='' Other='/o'/></Options></r>", "", ""},
        {"<r><Options><FileLocations TEMPLATESFOLDER='/1' TemplatesFolder='/2'/></Options></r>", "", "/2"},
        {"<r><Options DocumentsFolder='/o'><FileLocations/></Options></r>", "", ""},
    };
    for (const OptionsCase& c : cases) {
        StructureDocument document;
        ASSERT_TRUE(document.loadXML(c.xml));
        RecordingErrorHandler errors;
        COptions options(errors);
        EXPECT_TRUE(options.initIfThere(document.documentElement())) << c.xml;
        EXPECT_EQ(options.DocumentsFolder(), c.documents) << c.xml;
        EXPECT_EQ(options.TemplatesFolder(), c.templates) << c.xml;
    }
}

TEST(Options, MissingOptionsAreAnErrorAndChangeNothing) {
    RecordingErrorHandler errors;
    COptions options(errors);
    StructureDocument document;
    ASSERT_TRUE(document.loadXML("<r><Options><FileLocations DocumentsFolder='/d'/></Options></r>"));
    options.init(document.documentElement());
    for (const char* xml : {"<r/>", "<Options><FileLocations DocumentsFolder='/x'/></Options>",
                            "<r><Options/><FileLocations DocumentsFolder='/x'/></r>"}) {
        ASSERT_TRUE(document.loadXML(xml));
        try {
            options.init(document.documentElement());
            ADD_FAILURE() << xml;
        } catch (const AutomationError& error) {
            EXPECT_EQ(error.number(), 0x80040201U);
        }
        EXPECT_FALSE(options.initIfThere(document.documentElement())) << xml;
        EXPECT_EQ(options.DocumentsFolder(), "/d");
    }
    EXPECT_TRUE(errors.reports.empty());
}

}  // namespace
}  // namespace mergeloom
