#include "xml/XmlEncodings.h"

#include <libxml/encoding.h>
#include <windows.h>

#include <algorithm>
#include <cstring>

namespace mergeloom {

namespace {

constexpr int kCannotConvert = -2;
constexpr int kLongestUtf8 = 4;

/// Converts one character of a code page to UTF-8 and returns the count of its bytes there: 0 for a character
/// that is cut off, and a negative count for bytes that are none. The last parameter is the count of the
/// available bytes before, and of the character's bytes afterwards.
int convertCharacter(UINT codePage, const unsigned char* in, char* utf8, int& taken) {
    const int length = ::IsDBCSLeadByteEx(codePage, *in) != 0 ? 2 : 1;
    if (length > taken) return 0;
    taken = length;
    wchar_t units[2]{};
    const int count = ::MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, reinterpret_cast<const char*>(in),
                                            length, units, 2);
    // Windows makes control characters of the bytes that a code page leaves free.
    const bool isFree = units[0] >= 0x80 && units[0] <= 0x9F;
    if (count == 0 || isFree) return kCannotConvert;
    return ::WideCharToMultiByte(CP_UTF8, 0, units, count, utf8, kLongestUtf8, nullptr, nullptr);
}

/// Converts as much as there is room and whole characters for, as the parser wants it.
template <UINT CodePage>
int toUtf8(unsigned char* out, int* outSize, const unsigned char* in, int* inSize) {
    int produced = 0;
    int consumed = 0;
    while (consumed < *inSize) {
        char utf8[kLongestUtf8];
        int taken = *inSize - consumed;
        const int count = convertCharacter(CodePage, in + consumed, utf8, taken);
        if (count < 0 && produced == 0) produced = kCannotConvert;
        if (count <= 0 || produced + count > *outSize) break;
        std::memcpy(out + produced, utf8, static_cast<std::size_t>(count));
        produced += count;
        consumed += taken;
    }
    *inSize = consumed;
    *outSize = std::max(produced, 0);
    return produced;
}

/// The parser has room for about 25 encodings, but for any number of further names.
template <UINT CodePage>
void add(const char* name, std::initializer_list<const char*> others) {
    if (::IsValidCodePage(CodePage) == 0) return;
    xmlNewCharEncodingHandler(name, toUtf8<CodePage>, nullptr);
    for (const char* const other : others)
        xmlAddEncodingAlias(name, other);
}

/// The code pages of Windows's own languages, and the older ones that other systems' texts are in.
void addAll() {
    add<1250>("WINDOWS-1250", {"CP1250"});
    add<1251>("WINDOWS-1251", {"CP1251"});
    add<1252>("WINDOWS-1252", {"CP1252"});
    add<1253>("WINDOWS-1253", {"CP1253"});
    add<1254>("WINDOWS-1254", {"CP1254"});
    add<1255>("WINDOWS-1255", {"CP1255"});
    add<1256>("WINDOWS-1256", {"CP1256"});
    add<1257>("WINDOWS-1257", {"CP1257"});
    add<1258>("WINDOWS-1258", {"CP1258"});
    add<874>("WINDOWS-874", {"TIS-620", "CP874"});
    add<932>("SHIFT_JIS", {"SHIFT-JIS", "WINDOWS-31J", "CP932"});
    add<936>("GBK", {"GB2312", "CP936"});
    add<949>("EUC-KR", {"KS_C_5601-1987", "CP949"});
    add<950>("BIG5", {"CP950"});
    add<437>("IBM437", {"CP437"});
    add<850>("IBM850", {"CP850"});
    add<852>("IBM852", {"CP852"});
    add<866>("IBM866", {"CP866"});
    add<20866>("KOI8-R", {});
    add<21866>("KOI8-U", {});
    add<10000>("MACINTOSH", {});
}

}  // namespace

void addXmlEncodings() {
    static const bool isDone = [] {
        addAll();
        return true;
    }();
    static_cast<void>(isDone);
}

}  // namespace mergeloom
