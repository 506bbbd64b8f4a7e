#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace mergeloom {

/// The end of each text of a record with several texts.
inline constexpr char kNul = '\0';

/// The record OPENFILENAME of the common dialogs of Windows as its 32-bit ANSI edition lays it out. Addresses
/// of 32 bits cannot point to its texts: they are in OpenFileTexts under the same names, and the members here
/// stay 0.
struct OpenFileName {
    std::uint32_t lStructSize = 0;
    std::uint32_t hwndOwner = 0;
    std::uint32_t hInstance = 0;
    std::uint32_t lpstrFilter = 0;
    std::uint32_t lpstrCustomFilter = 0;
    std::uint32_t nMaxCustFilter = 0;
    std::uint32_t nFilterIndex = 0;  ///< counted from 1
    std::uint32_t lpstrFile = 0;
    std::uint32_t nMaxFile = 0;  ///< the size of lpstrFile with the NUL at its end
    std::uint32_t lpstrFileTitle = 0;
    std::uint32_t nMaxFileTitle = 0;
    std::uint32_t lpstrInitialDir = 0;
    std::uint32_t lpstrTitle = 0;
    std::uint32_t Flags = 0;
    std::uint16_t nFileOffset = 0;     ///< the index of the file's name in lpstrFile
    std::uint16_t nFileExtension = 0;  ///< the index of its extension; 0 without one
    std::uint32_t lpstrDefExt = 0;
    std::uint32_t lCustData = 0;
    std::uint32_t lpfnHook = 0;
    std::uint32_t lpTemplateName = 0;
};
static_assert(sizeof(OpenFileName) == 76);

/// The texts of the record in UTF-8; positions and sizes count bytes. An empty text represents a null
/// pointer.
struct OpenFileTexts {
    std::string lpstrFilter;  ///< descriptions and patterns in turn, each ended by a NUL
    std::string lpstrFile;    ///< a buffer; a dialog that needs more room enlarges it and nMaxFile
    std::string lpstrFileTitle;
    std::string lpstrInitialDir;
    std::string lpstrTitle;
    std::string lpstrDefExt;
};

/// Bits of Flags, under their published names.
inline constexpr std::uint32_t OFN_READONLY = 0x1;
inline constexpr std::uint32_t OFN_OVERWRITEPROMPT = 0x2;
inline constexpr std::uint32_t OFN_HIDEREADONLY = 0x4;
inline constexpr std::uint32_t OFN_NOCHANGEDIR = 0x8;
inline constexpr std::uint32_t OFN_ALLOWMULTISELECT = 0x200;
inline constexpr std::uint32_t OFN_EXTENSIONDIFFERENT = 0x400;
inline constexpr std::uint32_t OFN_PATHMUSTEXIST = 0x800;
inline constexpr std::uint32_t OFN_FILEMUSTEXIST = 0x1000;
inline constexpr std::uint32_t OFN_EXPLORER = 0x80000;
inline constexpr std::uint32_t OFN_LONGNAMES = 0x200000;

/// Fills the record with the one path that was chosen. Buffers that are too short for it grow.
void fillWithFile(OpenFileName& record, OpenFileTexts& texts, const std::string& path);

/// Fills the record with several paths of one folder.
void fillWithFiles(OpenFileName& record, OpenFileTexts& texts, const std::vector<std::string>& paths);

}  // namespace mergeloom
