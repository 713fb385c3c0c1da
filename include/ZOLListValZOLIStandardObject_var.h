// A list of handles on objects of the generic standard service; indexes start at 1.
#pragma once
#include <vector>

#include "ZOLIStandardObject.h"

class ZOLListValZOLIStandardObject_var {
public:
  /// Appends a handle; the list holds a reference of its own.
  void Append(const ZOLIStandardObject_var& object) { _items.push_back(object); }
  /// Number of handles.
  int Size() const { return static_cast<int>(_items.size()); }
  /// The i-th handle, from 1.
  const ZOLIStandardObject_var& operator[](int i) const { return _items.at(static_cast<size_t>(i - 1)); }
  /// Empties the list.
  void RemoveAll() { _items.clear(); }

private:
  std::vector<ZOLIStandardObject_var> _items;
};
