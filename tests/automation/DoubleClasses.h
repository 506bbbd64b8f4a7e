#pragma once

#include <windows.h>

#include <string>

namespace mergeloom::automation {

/// The classes of the double's program.
struct DoubleClass {
    CLSID identifier;
    const char* programIdentifier;
};

inline constexpr DoubleClass kWordDouble{
    {0x2f6b6c0a, 0x5d0e, 0x4d1b, {0x8e, 0x77, 0x41, 0x9a, 0x60, 0x2b, 0x3c, 0x11}}, "Mergeloom.WordDouble"};

inline constexpr DoubleClass kExcelDouble{
    {0x2f6b6c0a, 0x5d0e, 0x4d1b, {0x8e, 0x77, 0x41, 0x9a, 0x60, 0x2b, 0x3c, 0x12}}, "Mergeloom.ExcelDouble"};

/// Registers a class of the double's program, under its own identifier or another one, until it ends. Raises
/// std::runtime_error.
class RegisteredClass {
  public:
    RegisteredClass(const DoubleClass& registered, const std::string& programIdentifier,
                    const std::string& program);
    /// Registers a further class of one of the doubles, which the program offers when it is started for this
    /// class, with options for the program. Wine does not start a class again after its program was killed.
    static RegisteredClass further(const DoubleClass& offered, const std::string& programIdentifier,
                                   const std::string& program, const std::string& options = "");
    RegisteredClass(const RegisteredClass&) = delete;
    RegisteredClass& operator=(const RegisteredClass&) = delete;
    ~RegisteredClass();

  private:
    RegisteredClass(const std::wstring& identifier, const std::string& programIdentifier,
                    const std::wstring& commandLine);

    std::wstring classKey_;
    std::wstring programKey_;
};

}  // namespace mergeloom::automation
