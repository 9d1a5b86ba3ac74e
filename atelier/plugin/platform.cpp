// The platform's calls that the module makes, answered from the environment.
// The installation folder: KAVEL_CHEMIN when set, else the user's data folder; it is made at the first write.
#include "hote/adaptation.h"
#include "hote/plateforme.h"

#include <dlfcn.h>
#include <link.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "atelier/base/files.h"
#include "atelier/base/text.h"
#include "atelier/plugin/installation.h"

namespace atelier {

std::string installationTrouble() {
  const std::string folder = installationFolder();
  std::error_code error;
  if (std::filesystem::is_directory(folder, error) && access(folder.c_str(), W_OK | X_OK) == 0) return {};
  return folder + ": ce dossier ne peut pas être écrit, les réglages ne seront pas gardés";
}

}  // namespace atelier

long adaptation::registryString(HKEY, const wchar_t* key, const wchar_t* value, wchar_t* text, unsigned long* size) {
  constexpr long kFileNotFound = 2, kMoreData = 234;
  // The one value that stands for the installation folder; there is no other registry here.
  if (!key || !value || !text || !size || !atelier::equalNoCase(atelier::toUtf8(value), "chemin")) return kFileNotFound;
  const std::wstring folder = atelier::toWide(atelier::installationFolder());
  const unsigned long needed = static_cast<unsigned long>((folder.size() + 1) * sizeof(wchar_t));
  if (*size < needed) return kMoreData;
  std::copy(folder.begin(), folder.end(), text);
  text[folder.size()] = 0;
  *size = needed;
  return ERROR_SUCCESS;
}

long CoInitialize(void*) { return ERROR_SUCCESS; }
void CoUninitialize() {}

// Compares file names of the modules that the loader knows: dlopen would compare a plain name with the name written
// inside the file, which a plug-in need not have. The reference that dlopen takes is kept, so that addresses given out
// stay valid.
HMODULE GetModuleHandleW(const wchar_t* fileName) {
  if (!fileName) return nullptr;
  struct Search {
    std::string wanted, path;
  } search{atelier::toUtf8(fileName), {}};
  dl_iterate_phdr(
      [](dl_phdr_info* object, std::size_t, void* data) {
        Search& sought = *static_cast<Search*>(data);
        const std::string path = object->dlpi_name ? object->dlpi_name : "";
        if (path.empty() || !atelier::equalNoCase(path.substr(path.rfind('/') + 1), sought.wanted)) return 0;
        sought.path = path;
        return 1;
      },
      &search);
  return search.path.empty() ? nullptr : dlopen(search.path.c_str(), RTLD_LAZY | RTLD_NOLOAD);
}

FARPROC GetProcAddress(HMODULE module, const char* name) {
  return module && name ? reinterpret_cast<FARPROC>(dlsym(module, name)) : nullptr;
}
