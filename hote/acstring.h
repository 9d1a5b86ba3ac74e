// AcString: the host's wide string. Comparison is exact unless a name ends in NoCase.
// It wraps a std::wstring; a null pointer counts as the empty string.
#pragma once
#include <cwctype>
#include <string>

#include "hote/adesk.h"

class AcString {
 public:
  AcString() = default;
  AcString(const ACHAR* text) : mText(text ? text : L"") {}

  const ACHAR* kACharPtr() const { return mText.c_str(); }
  const ACHAR* constPtr() const { return mText.c_str(); }
  operator const ACHAR*() const { return mText.c_str(); }
  int length() const { return static_cast<int>(mText.size()); }
  bool isEmpty() const { return mText.empty(); }
  AcString& setEmpty() {
    mText.clear();
    return *this;
  }
  AcString& append(const ACHAR* text) {
    mText += text;
    return *this;
  }
  AcString& operator+=(const ACHAR* text) { return append(text); }
  int compare(const ACHAR* other) const { return mText.compare(other ? other : L""); }
  // Negative, zero or positive; each letter is compared in lower case.
  int compareNoCase(const ACHAR* other) const {
    const ACHAR* a = mText.c_str();
    const ACHAR* b = other ? other : L"";
    for (; *a && towlower(static_cast<wint_t>(*a)) == towlower(static_cast<wint_t>(*b)); ++a, ++b) {}
    return static_cast<int>(towlower(static_cast<wint_t>(*a))) - static_cast<int>(towlower(static_cast<wint_t>(*b)));
  }
  bool operator==(const ACHAR* other) const { return compare(other) == 0; }
  bool operator==(const AcString& other) const { return mText == other.mText; }
  bool operator!=(const ACHAR* other) const { return compare(other) != 0; }

 private:
  std::wstring mText;
};
