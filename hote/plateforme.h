// The few platform calls that the module makes, under the platform's names.
// The embedded host answers them from environment variables.
#pragma once
#include "hote/adesk.h"

using HKEY = std::uintptr_t;
inline constexpr HKEY HKEY_LOCAL_MACHINE = 0x80000002u;
inline constexpr HKEY HKEY_CURRENT_USER = 0x80000001u;
inline constexpr long ERROR_SUCCESS = 0;

// Finds a module that the process has loaded by its file name, without regard to case. Null for any other name: this
// call loads nothing.
using HMODULE = void*;
HMODULE GetModuleHandleW(const wchar_t* fileName);
// The address of a function that a module exports, to be cast to the function's own type; null when it has none.
using FARPROC = std::intptr_t (*)();
FARPROC GetProcAddress(HMODULE module, const char* name);

// The platform's components, which a host's automation may need; this one's does not.
long CoInitialize(void* reserved);
void CoUninitialize();

// The character between the folders of a path.
inline constexpr wchar_t kSeparateurDossier =
#ifdef _WIN32
    L'\\';
#else
    L'/';
#endif
