// AcArray: the host's growable array, and the arrays of ids and points that its functions take.
// An index out of range is the caller's fault and is asserted.
#pragma once
#include <cassert>
#include <vector>

template <class T>
class AcArray {
 public:
  AcArray() = default;
  explicit AcArray(int physicalLength, int = 8) { mItems.reserve(static_cast<std::size_t>(physicalLength)); }

  int length() const { return static_cast<int>(mItems.size()); }
  int logicalLength() const { return length(); }
  bool isEmpty() const { return mItems.empty(); }
  const T& operator[](int index) const { return at(index); }
  T& operator[](int index) { return at(index); }
  const T& at(int index) const {
    assert(index >= 0 && index < length());
    return mItems[static_cast<std::size_t>(index)];
  }
  T& at(int index) {
    assert(index >= 0 && index < length());
    return mItems[static_cast<std::size_t>(index)];
  }
  const T& first() const { return at(0); }
  T& first() { return at(0); }
  const T& last() const { return at(length() - 1); }
  T& last() { return at(length() - 1); }

  int append(const T& item) {
    mItems.push_back(item);
    return length() - 1;
  }
  AcArray& append(const AcArray& others) {
    mItems.insert(mItems.end(), others.mItems.begin(), others.mItems.end());
    return *this;
  }
  AcArray& insertAt(int index, const T& item) {
    assert(index >= 0 && index <= length());
    mItems.insert(mItems.begin() + index, item);
    return *this;
  }
  AcArray& removeAt(int index) {
    assert(index >= 0 && index < length());
    mItems.erase(mItems.begin() + index);
    return *this;
  }
  AcArray& removeAll() {
    mItems.clear();
    return *this;
  }
  AcArray& removeLast() {
    mItems.pop_back();
    return *this;
  }
  bool contains(const T& item, int start = 0) const { return find(item, start) >= 0; }
  int find(const T& item, int start = 0) const {
    for (int i = start; i < length(); ++i)
      if (at(i) == item) return i;
    return -1;
  }
  AcArray& setLogicalLength(int length) {
    mItems.resize(static_cast<std::size_t>(length));
    return *this;
  }
  AcArray& reverse() {
    for (int i = 0, j = length() - 1; i < j; ++i, --j)
      std::swap(mItems[static_cast<std::size_t>(i)], mItems[static_cast<std::size_t>(j)]);
    return *this;
  }
  const T* asArrayPtr() const { return mItems.data(); }
  T* asArrayPtr() { return mItems.data(); }
  auto begin() const { return mItems.begin(); }
  auto end() const { return mItems.end(); }
  auto begin() { return mItems.begin(); }
  auto end() { return mItems.end(); }

 private:
  std::vector<T> mItems;
};
