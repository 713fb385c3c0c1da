// The platform's list of strings; indexes start at 1.
#pragma once
#include <algorithm>
#include <vector>

#include "ZOLUnicodeString.h"

class ZOLListValZOLUnicodeString {
public:
  /// Appends a copy.
  void Append(const ZOLUnicodeString& s) { _items.push_back(s); }
  /// Number of strings.
  int Size() const { return static_cast<int>(_items.size()); }
  /// The i-th string, from 1.
  ZOLUnicodeString& operator[](int i) { return _items.at(static_cast<size_t>(i - 1)); }
  const ZOLUnicodeString& operator[](int i) const { return _items.at(static_cast<size_t>(i - 1)); }
  /// 1-based index of the first equal string at or after from; 0 if absent.
  int Locate(const ZOLUnicodeString& s, int from = 1) const {
    for (size_t i = from > 1 ? static_cast<size_t>(from - 1) : 0; i < _items.size(); ++i)
      if (_items[i] == s) return static_cast<int>(i + 1);
    return 0;
  }
  /// Empties the list.
  void RemoveAll() { _items.clear(); }
  /// Keeps the first of equal strings, in order; returns how many were removed.
  int RemoveDuplicates() {
    std::vector<ZOLUnicodeString> kept;
    for (auto& s : _items)
      if (std::find(kept.begin(), kept.end(), s) == kept.end()) kept.push_back(s);
    int removed = Size() - static_cast<int>(kept.size());
    _items.swap(kept);
    return removed;
  }
  auto begin() const { return _items.begin(); }
  auto end() const { return _items.end(); }

private:
  std::vector<ZOLUnicodeString> _items;
};
