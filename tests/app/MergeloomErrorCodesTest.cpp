#include "app/MergeloomErrorCodes.h"

#include <gtest/gtest.h>

namespace mergeloom {
namespace {

TEST(MergeloomErrorCodes, GiveEveryCodeItsText) {
    struct Case {
        ErrorNumber code, number;
        std::string text;
    };
    const std::vector<Case> cases = {
        {kXmlFileNotDefined, 0x80040401, "XML file is not defined."},
        {kXmlFileDoesNotExist, 0x80040402, "XML file does not exist."},
        {kXmlFileIncorrect, 0x80040403, "XML file is incorrect."},
        {kUseDocumentDoesNotExist, 0x80040404, "UseDocument does not exist."},
        {kTemplateNotDefined, 0x80040405, "Template is not defined."},
        {kTemplateFolderDoesNotExist, 0x80040406, "The folder for template does not exist."},
        {kTemplateAlreadyExists, 0x80040407, "Template already exists."},
        {kMappingStopped, 0x80040408, ""},
        {kLabelDocumentDoesNotExist, 0x80040409, "LabelDocument does not exist."},
        {kLabelDocumentIncorrect, 0x8004040A, "LabelDocument is incorrect."},
        {kFieldListNotDefined, 0x8004040B, "FieldList is not defined."},
        {kFieldListIncorrect, 0x8004040C, "FieldList is incorrect."},
        {kFileDoesNotExist, 0x8004040D, "File 'c:\\t.dot' does not exist."},
        {kTemplateFormatNotSupported, 0x8004040E,
         "Template 'c:\\t.dot' has unsupported file format.\r\nPlease convert it to Word 97-2003 template "
         "and try "
         "again."},
        {kTemplateAlreadyOpened, 0x8004040F,
         "Template 'c:\\t.dot' is already opened.\r\nPlease close it and try again."},
    };
    for (const Case& one : cases) {
        EXPECT_EQ(one.code, one.number);
        EXPECT_TRUE(isMappingError(one.code));
        EXPECT_EQ(GetMappingErrorText(one.code, {"c:\\t.dot"}), one.text);
    }
    EXPECT_EQ(GetMappingErrorText(kFileDoesNotExist), "File '%1' does not exist.");
}

TEST(MergeloomErrorCodes, AreRaisedWithTheirText) {
    try {
        RaiseMappingError(kFileDoesNotExist, {"a"});
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.number(), 0x8004040D);
        EXPECT_EQ(error.description(), "File 'a' does not exist.");
    }
    for (const ErrorNumber code : {0x80040400U, 0x80040410U, 0U}) {
        EXPECT_FALSE(isMappingError(code));
        try {
            (void)GetMappingErrorText(code);
            ADD_FAILURE() << code;
        } catch (const AutomationError& error) {
            EXPECT_EQ(error.number(), kSubscriptOutOfRange);
        }
    }
}

}  // namespace
}  // namespace mergeloom
