// The value face of the standard object: reads by dotted path and index, served from the maps of
// the store, with a walk of the tree behind a miss whose result is filed for the next read.
#include <algorithm>
#include <cmath>

#include "ZOLDftStandardServices.h"
#include "ZOLSysLog.h"
#include "standard/ZOLVotTransientStandard.h"

namespace {

using Kind = ZOLDftStdElement;
using Node = ZOLVotStandardNode;

// Writes a string array to the caller's strings.
void WriteStrings(const ZOLVotChars& chars, const std::vector<ZOLVotSpan>& list, ZOLUnicodeString** oValues) {
  for (size_t i = 0; i < list.size(); ++i)
    if (oValues[i]) oValues[i]->str().assign(ZOLVotView(chars, list[i]));
}

}  // namespace

template <class T, class Read>
HRESULT ZOLVotTransientStandard::GetSingle(ZOLVotKeyMap<T>& cache, ZOLDftStdElement leaf, Read read, const char* iPath,
                                           int iIndex, T& oValue) {
  std::string_view path = iPath ? iPath : "";
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

HRESULT ZOLVotTransientStandard::GetValue(const char* iPath, int iIndex, int& oValue) {
  return GetSingle(_Store._IntValues, Kind::IntVal, &ZOLVotStandardStore::ReadInt, iPath, iIndex, oValue);
}

HRESULT ZOLVotTransientStandard::GetValue(const char* iPath, int iIndex, double& oValue) {
  return GetSingle(_Store._DoubleValues, Kind::FloatVal, &ZOLVotStandardStore::ReadReal, iPath, iIndex, oValue);
}

HRESULT ZOLVotTransientStandard::GetValue(const char* iPath, int iIndex, ZOLUnicodeString& oValue) {
  std::string_view path = iPath ? iPath : "";
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

HRESULT ZOLVotTransientStandard::GetValue(const char* iPath, int* oValues, int* oCount) {
  if (!oValues) {
    ZOLAssertPointer("");
    return E_INVALIDARG;
  }
  std::string_view path = iPath ? iPath : "";
  int count = 0;
  if (const std::vector<int>* hit = _Store._IntArrays.Find(path)) {
    std::copy(hit->begin(), hit->end(), oValues);
    count = static_cast<int>(hit->size());
  } else if (const int* single = _Store._IntValues.Find(_Store.MakeKey(path, 1))) {
    oValues[0] = *single;
    count = 1;
  } else if (const Node* node = FindNode(path, 1)) {
    if (node->kind == Kind::IntVal) {
      oValues[0] = ZOLVotStandardStore::ReadInt(Value(*node));
      _Store._IntValues[_Store.MakeKey(path, 1)] = oValues[0];
      count = 1;
    } else if (node->kind == Kind::ColorVal) {
      std::vector<int> rgb;
      SplitColor(Value(*node), rgb);
      std::copy(rgb.begin(), rgb.end(), oValues);
      _Store._IntArrays[path] = std::move(rgb);
      count = 3;
    } else {
      std::vector<int> list;
      for (const Node* c = FirstChild(*node); c; c = NextSibling(*c)) {
        if (c->kind == Kind::IntVal) {
          int v = ZOLVotStandardStore::ReadInt(Value(*c));
          oValues[list.size()] = v;
          list.push_back(v);
          count = static_cast<int>(list.size());
        } else if (c->kind == Kind::ColorVal) {
          SplitColor(Value(*c), list);
          std::copy(list.begin(), list.end(), oValues);
          count = 3;
        }
      }
      _Store._IntArrays[path] = std::move(list);
    }
  }
  if (oCount) *oCount = count;
  return count == 0 ? E_FAIL : S_OK;
}

HRESULT ZOLVotTransientStandard::GetValue(const char* iPath, double* oValues, int* oCount) {
  if (!oValues) {
    ZOLAssertPointer("");
    return E_INVALIDARG;
  }
  std::string_view path = iPath ? iPath : "";
  int count = 0;
  if (const std::vector<double>* hit = _Store._DoubleArrays.Find(path)) {
    std::copy(hit->begin(), hit->end(), oValues);
    count = static_cast<int>(hit->size());
  } else if (const double* single = _Store._DoubleValues.Find(_Store.MakeKey(path, 1))) {
    oValues[0] = *single;
    count = 1;
  } else if (const Node* node = FindNode(path, 1)) {
    if (node->kind == Kind::FloatVal) {
      oValues[0] = ZOLVotStandardStore::ReadReal(Value(*node));
      _Store._DoubleValues[_Store.MakeKey(path, 1)] = oValues[0];
      count = 1;
    } else {
      // Kept on purpose: each element reads the node's own text, not the child's (0.0 for a node).
      std::vector<double> list;
      for (const Node* c = FirstChild(*node); c; c = NextSibling(*c))
        if (c->kind == Kind::FloatVal) {
          double d = ZOLVotStandardStore::ReadReal(Value(*node));
          oValues[list.size()] = d;
          list.push_back(d);
        }
      count = static_cast<int>(list.size());
      _Store._DoubleArrays[path] = std::move(list);
    }
  }
  if (oCount) *oCount = count;
  return count == 0 ? E_FAIL : S_OK;
}

HRESULT ZOLVotTransientStandard::GetValue(const char* iPath, ZOLUnicodeString** oValues, int* oCount) {
  if (!oValues) {
    ZOLAssertPointer("");
    return E_INVALIDARG;
  }
  std::string_view path = iPath ? iPath : "";
  int count = 0;
  const ZOLVotSpan* single = nullptr;
  std::string_view key;
  uint64_t h = 0;
  if (const std::vector<ZOLVotSpan>* hit = _Store._StringArrays.Find(path)) {
    WriteStrings(_Store._Chars, *hit, oValues);
    count = static_cast<int>(hit->size());
  } else if ((key = _Store.MakeKey(path, 1), h = ZOLVotHash(key), single = _Store._StringValues.Find(key, h)) ||
             (single = _Store._EnumValues.Find(key, h)) || (single = _Store._EnumValues.Find(_Store.MakeParentKey(path, 1)))) {
    if (oValues[0]) oValues[0]->str().assign(ZOLVotView(_Store._Chars, *single));
    count = 1;
  } else if (const Node* node = FindNode(path, 1)) {
    if (node->kind == Kind::StrVal) {
      if (oValues[0]) oValues[0]->str().assign(Value(*node));
      _Store._StringValues[_Store.MakeKey(path, 1)] = node->value;
      count = 1;
    } else {
      // Kept on purpose: each element is the node's own text, not the child's (empty for a node).
      std::vector<ZOLVotSpan> list;
      for (const Node* c = FirstChild(*node); c; c = NextSibling(*c))
        if (c->kind == Kind::StrVal) list.push_back(node->value);
      WriteStrings(_Store._Chars, list, oValues);
      count = static_cast<int>(list.size());
      _Store._StringArrays[path] = std::move(list);
    }
  }
  if (oCount) *oCount = count;
  return count == 0 ? E_FAIL : S_OK;
}

HRESULT ZOLVotTransientStandard::GetValueType(const char* iPath, ZOLDftStandardValueType* oType, int* oCount) {
  if (!oType) {
    ZOLAssertPointer("");
    return E_INVALIDARG;
  }
  if (oCount) *oCount = 0;
  const Node* node = FindNode(iPath ? iPath : "", 1);
  if (!node) return E_FAIL;
  const Node* first = FirstChild(*node);
  std::string_view reference = first ? Type(*first) : std::string_view();
  int count = 0, children = 0;
  for (const Node* c = first; c; c = NextSibling(*c)) {
    ++children;
    if (Type(*c) == reference) ++count;
    else ZOLAssertBool("");
  }
  if (count != children) {
    ZOLAssertBool("All Nodes have not the same type");
    return E_UNEXPECTED;
  }
  ZOLDftStandardValueType type = ZOLDftStandardValueTypeUnknown;
  if (reference == "std:intval") type = ZOLDftStandardValueTypeInteger;
  else if (reference == "std:floatval") type = ZOLDftStandardValueTypeReal;
  else if (reference == "std:strval") type = ZOLDftStandardValueTypeString;
  else if (reference == "std:enumval") type = ZOLDftStandardValueTypeEnum;
  else if (reference == "std:typeval") type = ZOLDftStandardValueTypeTypedEntry;
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
  for (int i = 1; SUCCEEDED(GetValue("LineThickness.mm", i, value)); ++i) {
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

