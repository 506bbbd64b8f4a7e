#pragma once

#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>

/// The one table of file formats: a row for each format that Word or Excel has a number for, and for each
/// that can only be opened. Everything that the program knows of extensions, names, filters and abilities is
/// derived from it, so a new format is a new row.
namespace mergeloom {

enum class DocumentFamily { Word, Excel };

/// The kinds of files, as numbers that callers store.
enum class OfficeDocumentType : int { Document = 1, Template = 2, AddIn = 3 };

/// The versions of Word or Excel that save in a format.
enum class SavedBy {
    NoVersion,
    EveryVersion,
    VersionsBefore2007,
    VersionsSince2002,
    VersionsSince2003,
    VersionsSince2007,
    /// 2007 with its second service pack, then from 2010 on.
    VersionsThatExchange,
};

/// The fate of the named places when a file is written in a format.
enum class Places { Lost, Kept };

enum class Macros { Refused, Kept };

/// The embedded engine's data about a format that it reads and writes.
struct OpenPackagingKind {
    /// The content type of the main part (ECMA-376 Part 1, 11.3.10 and 12.3.23; those with macros:
    /// [MS-OFFMACRO2]).
    std::string_view contentType;
    Macros macros = Macros::Refused;
};

/// One of LibreOffice's filters for reading or writing files, with its options. Without a name, LibreOffice
/// detects the format of a file itself.
struct OfficeFilter {
    std::string_view name = {};
    std::string_view options = {};
};

/// The number of a format that can only be opened.
inline constexpr int kOpenedOnly = std::numeric_limits<int>::min();

enum class InDialogs { Hidden, Offered };

/// A row of the table. Columns in which few rows differ come last, so that most rows can omit them.
struct FileFormat {
    int number;                  ///< WdSaveFormat's or XlFileFormat's
    std::string_view name;       ///< as dialogs show it
    std::string_view extension;  ///< without a dot, in lower case; secondExtension knows its longer form
    OfficeDocumentType type = OfficeDocumentType::Document;
    InDialogs dialogs = InDialogs::Hidden;
    SavedBy savedBy = SavedBy::NoVersion;
    Places places = Places::Lost;
    std::optional<OpenPackagingKind> engine = {};  ///< none for a format that the engine does not know
    std::optional<OfficeFilter> saving = {};       ///< LibreOffice's filter that writes it, if any
    std::optional<OfficeFilter> opening = {};      ///< LibreOffice's filter that reads it, if any
};

/// The formats of a family. Those that dialogs offer come first, in the order of the dialogs: the first one
/// with an extension is the one that users mean by it.
std::span<const FileFormat> fileFormats(DocumentFamily family);
std::span<const FileFormat> wordFormats();
std::span<const FileFormat> excelFormats();

/// Returns the format with the number, or null.
const FileFormat* findFormat(DocumentFamily family, int number);

/// Returns the extensions of the formats that the engine writes, such as "docx, docm or dotm"; with
/// Macros::Kept only of those that keep macros.
std::string engineExtensions(DocumentFamily family, Macros macros);

/// Returns the clause of a message that refuses to save macros in a format that cannot keep them.
std::string macroRefusal(DocumentFamily family);

/// Returns the first format with the extension that can be opened, by the engine or by LibreOffice, or null.
const FileFormat* findFormatToOpen(DocumentFamily family, std::string_view extension);

/// Returns true when files with the extension hold documents that the engine cannot open and LibreOffice can.
bool isForeignExtension(DocumentFamily family, std::string_view extension);

/// Returns the family that alone knows the extension; none when both do, or neither.
std::optional<DocumentFamily> familyOf(std::string_view extension);

}  // namespace mergeloom
