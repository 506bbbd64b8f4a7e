#include "automation/DoubleClasses.h"

#include "base/windows/WindowsText.h"

#include <objbase.h>

#include <array>
#include <stdexcept>

namespace mergeloom::automation {

namespace {

void setDefault(const std::wstring& key, const std::wstring& text) {
    const auto bytes = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    if (::RegSetKeyValueW(HKEY_CLASSES_ROOT, key.c_str(), nullptr, REG_SZ, text.c_str(), bytes) != 0)
        throw std::runtime_error("not registered: " + windows::utf8Text(key));
}

std::wstring textOf(const CLSID& identifier) {
    std::array<wchar_t, 64> text{};
    ::StringFromGUID2(identifier, text.data(), static_cast<int>(text.size()));
    return text.data();
}

std::wstring quoted(const std::string& program) {
    return L'"' + windows::wideText(program) + L'"';
}

std::wstring newIdentifier() {
    CLSID identifier{};
    ::CoCreateGuid(&identifier);
    return textOf(identifier);
}

}  // namespace

RegisteredClass::RegisteredClass(const std::wstring& identifier, const std::string& programIdentifier,
                                 const std::wstring& commandLine)
    : classKey_(L"CLSID\\" + identifier), programKey_(windows::wideText(programIdentifier)) {
    setDefault(classKey_ + L"\\LocalServer32", commandLine);
    setDefault(programKey_ + L"\\CLSID", identifier);
}

RegisteredClass::RegisteredClass(const DoubleClass& registered, const std::string& programIdentifier,
                                 const std::string& program)
    : RegisteredClass(textOf(registered.identifier), programIdentifier, quoted(program)) {}

RegisteredClass RegisteredClass::further(const DoubleClass& offered, const std::string& programIdentifier,
                                         const std::string& program, const std::string& options) {
    const std::wstring identifier = newIdentifier();
    const bool isWord = ::IsEqualCLSID(offered.identifier, kWordDouble.identifier) != 0;
    return {identifier, programIdentifier,
            quoted(program) + (isWord ? L" --word " : L" --excel ") + identifier + L" " +
                windows::wideText(options)};
}

RegisteredClass::~RegisteredClass() {
    ::RegDeleteTreeW(HKEY_CLASSES_ROOT, classKey_.c_str());
    ::RegDeleteTreeW(HKEY_CLASSES_ROOT, programKey_.c_str());
}

}  // namespace mergeloom::automation
