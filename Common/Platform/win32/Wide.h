/// @file Wide.h
/// Texts of the Windows interfaces. For the sources of Common/Platform/win32 only.
#pragma once

#include <string>

namespace vdicom::platform {

/// UTF-8 to UTF-16; false for what is no UTF-8.
bool ToWide(const char* text, std::wstring& wide);
std::string FromWide(const wchar_t* wide);

/// A path for the wide calls: long ones get the prefix that lifts the limit of 260 characters. Empty when `path` is
/// null, empty or no UTF-8.
std::wstring WidePath(const char* path);

} // namespace vdicom::platform
