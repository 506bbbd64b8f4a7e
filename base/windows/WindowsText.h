#pragma once

#include <string>
#include <string_view>

/// Texts, errors and files between this program and Windows.
namespace mergeloom::windows {

/// Converts a text for a call of Windows.
std::wstring wideText(std::string_view text);
/// Converts a text that Windows returned. An unpaired surrogate becomes U+FFFD.
std::string utf8Text(std::wstring_view text);

/// Returns a path for a call of Windows: full, and for more than 247 characters in the form "\\?\" that has
/// no bound. An empty path stays empty.
std::wstring widePath(const std::string& path);
/// Returns a path without the prefix of that form.
std::string pathText(std::wstring_view path);

/// Returns the errno for an error of Windows.
int errnoOf(unsigned long error);
/// Sets errno after a call of Windows that failed, and returns -1.
int setErrno();

/// Returns a number of the C library for a handle of a file, which then belongs to the number. Returns -1,
/// with errno, for INVALID_HANDLE_VALUE and when there are too many open files.
int fileNumber(void* file, int flags);

}  // namespace mergeloom::windows
