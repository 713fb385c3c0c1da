// The value face of the standard object: reads by dotted path and index, served from the maps of
// the store, with a walk of the tree behind a miss whose result is filed for the next read.
#include <algorithm>
#include <climits>
#include <cmath>

#include "ZOLDftStandardServices.h"
#include "ZOLSysLog.h"
#include "standard/ZOLVotTransientStandard.h"

namespace {

using Kind = ZOLDftStdElement;
using Node = ZOLVotStandardNode;

}  // namespace

template <class T, class Read>
HRESULT ZOLVotTransientStandard::GetSingle(ZOLVotKeyMap<T>& cache, ZOLDftStdElement leaf, Read read, std::string_view path,
                                           int iIndex, T& oValue) {
  if (const T* hit = cache.Find(_Store.MakeKey(path, iIndex))) {
    oValue = *hit;
    return S_OK;
  }
  const Node* node = FindNode(path, iIndex);
  if (!node) return E_FAIL;
  std::string_view text;
  if (node->kind == leaf) text = Value(*node);
  else if (node->kind == Kind::Node && FirstChild(*node)) text = Value(*FirstChild(*node));
  else return E_FAIL;
  T v = read(text);
  oValue = v;
  cache[_Store.MakeKey(path, iIndex)] = v;
  return S_OK;
}

HRESULT ZOLVotTransientStandard::GetValue(std::string_view path, int iIndex, int& oValue) {
  return GetSingle(_Store._IntValues, Kind::IntVal, &ZOLVotStandardStore::ReadInt, path, iIndex, oValue);
}

HRESULT ZOLVotTransientStandard::GetValue(std::string_view path, int iIndex, double& oValue) {
  return GetSingle(_Store._DoubleValues, Kind::FloatVal, &ZOLVotStandardStore::ReadReal, path, iIndex, oValue);
}

HRESULT ZOLVotTransientStandard::GetValue(std::string_view path, int iIndex, ZOLUnicodeString& oValue) {
  std::string_view key = _Store.MakeKey(path, iIndex);
  const uint64_t h = ZOLVotHash(key);
  const ZOLVotSpan* hit = _Store._StringValues.Find(key, h);
  if (!hit) hit = _Store._EnumValues.Find(key, h);
  // Kept on purpose: an enum value also answers at its node's path followed by any last component.
  if (!hit) hit = _Store._EnumValues.Find(_Store.MakeParentKey(path, iIndex));
  if (hit) {
    oValue.str().assign(ZOLVotView(_Store._Chars, *hit));
    return S_OK;
  }
  const Node* node = FindNode(path, iIndex);
  if (!node) return E_FAIL;
  ZOLVotSpan text;
  if (node->kind == Kind::StrVal || node->kind == Kind::EnumVal) text = node->value;
  else if (node->kind == Kind::Node && FirstChild(*node)) text = FirstChild(*node)->value;
  else return E_FAIL;
  oValue.str().assign(ZOLVotView(_Store._Chars, text));
  _Store._StringValues[_Store.MakeKey(path, iIndex)] = text;
  return S_OK;
}

// ---------------------------------------------------------------------------------------------
// Arrays. Each form resolves its value once, filing what a walk found, and then copies it out:
// all of it for the forms that take no capacity, at most the capacity for the sized ones.

ZOLVotTransientStandard::ArrayRead<int> ZOLVotTransientStandard::ReadIntArray(std::string_view path) {
  ArrayRead<int> r;
  if (const std::vector<int>* hit = _Store._IntArrays.Find(path)) {
    r.Take(hit, static_cast<int>(hit->size()));
  } else if (const int* single = _Store._IntValues.Find(_Store.MakeKey(path, 1))) {
    r.TakeOne(*single);
  } else if (const Node* node = FindNode(path, 1)) {
    if (node->kind == Kind::IntVal) {
      const int v = ZOLVotStandardStore::ReadInt(Value(*node));
      _Store._IntValues[_Store.MakeKey(path, 1)] = v;
      r.TakeOne(v);
    } else if (node->kind == Kind::ColorVal) {
      std::vector<int> rgb;
      SplitColor(Value(*node), rgb);
      std::vector<int>& filed = _Store._IntArrays[path] = std::move(rgb);
      // Kept on purpose: a colour counts 3, whatever its text holds.
      r.Take(&filed, 3);
    } else {
      std::vector<int> list;
      int count = 0;
      for (const Node* c = FirstChild(*node); c; c = NextSibling(*c)) {
        if (c->kind == Kind::IntVal) {
          list.push_back(ZOLVotStandardStore::ReadInt(Value(*c)));
          count = static_cast<int>(list.size());
        } else if (c->kind == Kind::ColorVal) {
          SplitColor(Value(*c), list);
          count = 3;
        }
      }
      std::vector<int>& filed = _Store._IntArrays[path] = std::move(list);
      r.Take(&filed, count);
    }
  }
  return r;
}

ZOLVotTransientStandard::ArrayRead<double> ZOLVotTransientStandard::ReadRealArray(std::string_view path) {
  ArrayRead<double> r;
  if (const std::vector<double>* hit = _Store._DoubleArrays.Find(path)) {
    r.Take(hit, static_cast<int>(hit->size()));
  } else if (const double* single = _Store._DoubleValues.Find(_Store.MakeKey(path, 1))) {
    r.TakeOne(*single);
  } else if (const Node* node = FindNode(path, 1)) {
    if (node->kind == Kind::FloatVal) {
      const double v = ZOLVotStandardStore::ReadReal(Value(*node));
      _Store._DoubleValues[_Store.MakeKey(path, 1)] = v;
      r.TakeOne(v);
    } else {
      // Kept on purpose: each element reads the node's own text, not the child's (0.0 for a node).
      std::vector<double> list;
      for (const Node* c = FirstChild(*node); c; c = NextSibling(*c))
        if (c->kind == Kind::FloatVal) list.push_back(ZOLVotStandardStore::ReadReal(Value(*node)));
      std::vector<double>& filed = _Store._DoubleArrays[path] = std::move(list);
      r.Take(&filed, static_cast<int>(filed.size()));
    }
  }
  return r;
}

ZOLVotTransientStandard::ArrayRead<ZOLVotSpan> ZOLVotTransientStandard::ReadStringArray(std::string_view path) {
  ArrayRead<ZOLVotSpan> r;
  const ZOLVotSpan* single = nullptr;
  std::string_view key;
  uint64_t h = 0;
  if (const std::vector<ZOLVotSpan>* hit = _Store._StringArrays.Find(path)) {
    r.Take(hit, static_cast<int>(hit->size()));
  } else if ((key = _Store.MakeKey(path, 1), h = ZOLVotHash(key), single = _Store._StringValues.Find(key, h)) ||
             (single = _Store._EnumValues.Find(key, h)) || (single = _Store._EnumValues.Find(_Store.MakeParentKey(path, 1)))) {
    r.TakeOne(*single);
  } else if (const Node* node = FindNode(path, 1)) {
    if (node->kind == Kind::StrVal) {
      _Store._StringValues[_Store.MakeKey(path, 1)] = node->value;
      r.TakeOne(node->value);
    } else {
      // Kept on purpose: each element is the node's own text, not the child's (empty for a node).
      std::vector<ZOLVotSpan> list;
      for (const Node* c = FirstChild(*node); c; c = NextSibling(*c))
        if (c->kind == Kind::StrVal) list.push_back(node->value);
      std::vector<ZOLVotSpan>& filed = _Store._StringArrays[path] = std::move(list);
      r.Take(&filed, static_cast<int>(filed.size()));
    }
  }
  return r;
}

template <class T, class Out, class Put>
HRESULT ZOLVotTransientStandard::CopyArray(const ArrayRead<T>& read, Out* oValues, int iCapacity, int* oCount,
                                           bool sized, Put put) {
  const size_t n = sized ? std::min(read.size, static_cast<size_t>(std::max(iCapacity, 0))) : read.size;
  for (size_t i = 0; i < n; ++i) put(oValues[i], read[i]);
  if (oCount) *oCount = sized ? static_cast<int>(read.size) : read.reported;
  if (sized ? read.size == 0 : read.reported == 0) return E_FAIL;
  return sized && read.size > static_cast<size_t>(std::max(iCapacity, 0)) ? S_FALSE : S_OK;
}

namespace {

bool RefuseBuffer(const void* buffer, int capacity, bool sized) {
  if (buffer || (sized && capacity == 0)) return false;
  ZOLAssertPointer("");
  return true;
}

}  // namespace

HRESULT ZOLVotTransientStandard::GetValue(std::string_view path, int* oValues, int* oCount) {
  if (RefuseBuffer(oValues, 0, false)) return E_INVALIDARG;
  return CopyArray(ReadIntArray(path), oValues, 0, oCount, false, [](int& o, int v) { o = v; });
}

HRESULT ZOLVotTransientStandard::GetValue(std::string_view path, double* oValues, int* oCount) {
  if (RefuseBuffer(oValues, 0, false)) return E_INVALIDARG;
  return CopyArray(ReadRealArray(path), oValues, 0, oCount, false, [](double& o, double v) { o = v; });
}

HRESULT ZOLVotTransientStandard::GetValue(std::string_view path, ZOLUnicodeString** oValues, int* oCount) {
  if (RefuseBuffer(oValues, 0, false)) return E_INVALIDARG;
  return CopyArray(ReadStringArray(path), oValues, 0, oCount, false,
                   [&](ZOLUnicodeString*& o, ZOLVotSpan v) { if (o) o->str().assign(_Store.Text(v)); });
}

HRESULT ZOLVotTransientStandard::GetValue(std::string_view path, int* oValues, int iCapacity, int* oCount) {
  if (iCapacity < 0 || RefuseBuffer(oValues, iCapacity, true)) return E_INVALIDARG;
  return CopyArray(ReadIntArray(path), oValues, iCapacity, oCount, true, [](int& o, int v) { o = v; });
}

HRESULT ZOLVotTransientStandard::GetValue(std::string_view path, double* oValues, int iCapacity, int* oCount) {
  if (iCapacity < 0 || RefuseBuffer(oValues, iCapacity, true)) return E_INVALIDARG;
  return CopyArray(ReadRealArray(path), oValues, iCapacity, oCount, true, [](double& o, double v) { o = v; });
}

HRESULT ZOLVotTransientStandard::GetValue(std::string_view path, ZOLUnicodeString** oValues, int iCapacity, int* oCount) {
  if (iCapacity < 0 || RefuseBuffer(oValues, iCapacity, true)) return E_INVALIDARG;
  return CopyArray(ReadStringArray(path), oValues, iCapacity, oCount, true,
                   [&](ZOLUnicodeString*& o, ZOLVotSpan v) { if (o) o->str().assign(_Store.Text(v)); });
}

HRESULT ZOLVotTransientStandard::GetValueType(std::string_view path, ZOLDftStandardValueType* oType, int* oCount) {
  if (!oType) {
    ZOLAssertPointer("");
    return E_INVALIDARG;
  }
  if (oCount) *oCount = 0;
  const Node* node = FindNode(path, 1);
  if (!node) return E_FAIL;
  // Children are alike when they are the same element of the dialect, or both elements of
  // another namespace with the same name as read.
  const Node* first = FirstChild(*node);
  auto alike = [&](const Node& c) { return c.kind == first->kind && (c.kind != Kind::Unknown || Type(c) == Type(*first)); };
  int count = 0, children = 0;
  for (const Node* c = first; c; c = NextSibling(*c)) {
    ++children;
    if (alike(*c)) ++count;
    else ZOLAssertBool("");
  }
  if (count != children) {
    ZOLAssertBool("All Nodes have not the same type");
    return E_UNEXPECTED;
  }
  ZOLDftStandardValueType type = ZOLDftStandardValueTypeUnknown;
  switch (first ? first->kind : Kind::Unknown) {
    case Kind::IntVal: type = ZOLDftStandardValueTypeInteger; break;
    case Kind::FloatVal: type = ZOLDftStandardValueTypeReal; break;
    case Kind::StrVal: type = ZOLDftStandardValueTypeString; break;
    case Kind::EnumVal: type = ZOLDftStandardValueTypeEnum; break;
    case Kind::TypeVal: type = ZOLDftStandardValueTypeTypedEntry; break;
    default: break;
  }
  *oType = type;
  if (type == ZOLDftStandardValueTypeUnknown) {
    ZOLAssertBool("Unknown standard value type!");
    ZOLAssertBool("");
    return E_UNEXPECTED;
  }
  if (oCount) *oCount = count;
  return S_OK;
}

HRESULT ZOLVotTransientStandard::GetThicknessIndex(double iMillimetres, int* oIndex) {
  if (iMillimetres < 0.0) return E_INVALIDARG;
  if (!oIndex) {
    ZOLAssertPointer("");
    return E_INVALIDARG;
  }
  *oIndex = 0;
  double best = static_cast<double>(1e25f);
  double value = 0.0;
  // A table has no more rows than the standard has elements: a path that answers at any index
  // (a value named "mm" right in the node) ends there instead of running on.
  const int rows = static_cast<int>(std::min<size_t>(_Store.NodeCount(), INT_MAX));
  for (int i = 1; i <= rows && SUCCEEDED(GetValue("LineThickness.mm", i, value)); ++i) {
    // Strictly closer only: on a tie the lower row wins.
    if (std::fabs(iMillimetres - value) < best) {
      best = std::fabs(iMillimetres - value);
      *oIndex = i;
    }
  }
  return S_OK;
}

int ZOLVotTransientStandard::GetStdVersion() {
  if (_Version != -1) return _Version;
  if (GetValue("Version", 1, _Version) == S_OK) return _Version;
  ZOLUnicodeString className;
  ZOLDftStandardServices::GetStandardClassAndVersion(_FilePath, className, _Version);
  return _Version;
}

