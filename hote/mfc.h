// The two containers of the platform's framework that the module's stored models use, and its extension modules.
// An index out of range raises the framework's invalid-argument failure.
#pragma once
#include <stdexcept>
#include <vector>

class CInvalidArgException : public std::invalid_argument {
 public:
  CInvalidArgException() : std::invalid_argument("invalid argument") {}
};

// A library with resources of its own is an extension module of the framework. The embedded host looks for no resources.
struct AFX_EXTENSION_MODULE {
  bool bInitialized = false;
  void *hModule = nullptr, *hResource = nullptr;
};
inline bool AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, void* module) {
  state.hModule = state.hResource = module;
  return state.bInitialized = true;
}
inline void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state) { state.bInitialized = false; }
class CDynLinkLibrary {
 public:
  explicit CDynLinkLibrary(AFX_EXTENSION_MODULE&) {}
};

template <class TYPE, class ARG_TYPE = const TYPE&>
class CArray {
 public:
  std::ptrdiff_t GetSize() const { return static_cast<std::ptrdiff_t>(mItems.size()); }
  std::ptrdiff_t GetCount() const { return GetSize(); }
  bool IsEmpty() const { return mItems.empty(); }
  // growBy only affects how memory is reserved; a size of 0 releases the memory.
  void SetSize(std::ptrdiff_t size, std::ptrdiff_t growBy = -1) {
    if (size < 0) throw CInvalidArgException();
    mItems.resize(static_cast<std::size_t>(size));
    if (growBy > 0) mItems.reserve(static_cast<std::size_t>(size + growBy));
  }
  void RemoveAll() { mItems.clear(); }
  std::ptrdiff_t Add(ARG_TYPE item) {
    mItems.push_back(item);
    return GetSize() - 1;
  }
  TYPE& GetAt(std::ptrdiff_t index) { return mItems[checked(index)]; }
  const TYPE& GetAt(std::ptrdiff_t index) const { return mItems[checked(index)]; }
  void SetAt(std::ptrdiff_t index, ARG_TYPE item) { mItems[checked(index)] = item; }
  TYPE& operator[](std::ptrdiff_t index) { return GetAt(index); }
  const TYPE& operator[](std::ptrdiff_t index) const { return GetAt(index); }
  void InsertAt(std::ptrdiff_t index, ARG_TYPE item) {
    if (index < 0) throw CInvalidArgException();
    if (index > GetSize()) SetSize(index);
    mItems.insert(mItems.begin() + index, item);
  }
  void RemoveAt(std::ptrdiff_t index, std::ptrdiff_t count = 1) {
    if (index < 0 || count < 0 || index + count > GetSize()) throw CInvalidArgException();
    mItems.erase(mItems.begin() + index, mItems.begin() + index + count);
  }

 private:
  std::size_t checked(std::ptrdiff_t index) const {
    if (index < 0 || index >= GetSize()) throw CInvalidArgException();
    return static_cast<std::size_t>(index);
  }
  std::vector<TYPE> mItems;
};
