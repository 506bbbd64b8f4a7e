#pragma once

namespace mergeloom::word {

/// WdSaveFormat: the numbers pass through SaveAs unchanged. Only those that code distinguishes have names
/// here; any other number of the enumeration may be cast to it.
enum class WdSaveFormat : int {
    wdFormatXMLDocument = 12,
    wdFormatXMLDocumentMacroEnabled = 13,
    wdFormatXMLTemplate = 14,
    wdFormatXMLTemplateMacroEnabled = 15,
    wdFormatPDF = 17,
};

/// WdFieldType, as far as code distinguishes fields; other fields have none of these types.
enum class WdFieldType : int {
    wdFieldEmpty = -1,
    wdFieldSet = 6,
    wdFieldIf = 7,
    wdFieldQuote = 35,
    wdFieldAsk = 38,
    wdFieldFillIn = 39,
    wdFieldNext = 41,
    wdFieldNextIf = 42,
    wdFieldSkipIf = 43,
    wdFieldMergeRec = 44,
    wdFieldMergeField = 59,
    wdFieldMergeSeq = 75,
    wdFieldAddressBlock = 93,
    wdFieldGreetingLine = 94,
};

/// WdUnits, as far as ranges and the selection are moved by them.
enum class WdUnits : int { wdCharacter = 1, wdStory = 6 };

/// WdCollapseDirection.
enum class WdCollapseDirection : int { wdCollapseEnd = 0, wdCollapseStart = 1 };

/// WdSaveOptions.
enum class WdSaveOptions : int { wdSaveChanges = -1, wdDoNotSaveChanges = 0 };

}  // namespace mergeloom::word
