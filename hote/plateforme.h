// The few platform calls that the module makes, under the platform's names.
// The embedded host answers them from environment variables.
#pragma once
#include "hote/adesk.h"

using HKEY = std::uintptr_t;
inline constexpr HKEY HKEY_LOCAL_MACHINE = 0x80000002u;
inline constexpr HKEY HKEY_CURRENT_USER = 0x80000001u;
inline constexpr long ERROR_SUCCESS = 0;

// Reads the string value of a key. size: on entry the capacity of text in bytes, on return the bytes written, closing
// zero included. Any answer but ERROR_SUCCESS: there is no such value, or the buffer is too small.
long RegGetStringW(HKEY root, const wchar_t* key, const wchar_t* value, wchar_t* text, unsigned long* size);

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
