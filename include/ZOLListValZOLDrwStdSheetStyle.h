// A list of sheet styles by value; indexes start at 1.
#pragma once
#include <vector>

#include "ZOLDrwStdSheetStyle.h"

class ZOLListValZOLDrwStdSheetStyle {
public:
  /// An empty list.
  ZOLListValZOLDrwStdSheetStyle() = default;
  /// An empty list with room for size styles.
  explicit ZOLListValZOLDrwStdSheetStyle(int size) { Reserve(size); }
  /// An empty list with room for size styles; the growth is left to the vector.
  ZOLListValZOLDrwStdSheetStyle(int size, int /*growth*/) { Reserve(size); }

  /// Appends a copy.
  void Append(const ZOLDrwStdSheetStyle& style) { _items.push_back(style); }
  /// Empties the list.
  void RemoveAll() { _items.clear(); }
  /// Number of styles.
  int Size() const { return static_cast<int>(_items.size()); }
  /// The i-th style, from 1 (std::out_of_range beyond the list).
  ZOLDrwStdSheetStyle& operator[](int i) { return _items.at(static_cast<size_t>(i - 1)); }
  const ZOLDrwStdSheetStyle& operator[](int i) const { return _items.at(static_cast<size_t>(i - 1)); }

  /// 1 when both lists hold equal styles in the same order.
  friend bool operator==(const ZOLListValZOLDrwStdSheetStyle& a, const ZOLListValZOLDrwStdSheetStyle& b) {
    return a._items == b._items;
  }
  /// 1 when the lists differ.
  friend bool operator!=(const ZOLListValZOLDrwStdSheetStyle& a, const ZOLListValZOLDrwStdSheetStyle& b) {
    return !(a == b);
  }

  auto begin() const { return _items.begin(); }
  auto end() const { return _items.end(); }

private:
  void Reserve(int size) { if (size > 0) _items.reserve(static_cast<size_t>(size)); }

  std::vector<ZOLDrwStdSheetStyle> _items;
};
