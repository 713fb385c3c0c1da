// Read-only JSON objects and arrays over nlohmann's ordered_json.
#include "detail/ZOLOmxJson.h"

#include <limits>

namespace {

HRESULT ReadInteger(const ZOLOmxJsonDocument* v, int& out) {
  if (!v) return E_FAIL;
  if (v->is_number_unsigned()) {
    auto n = v->get<uint64_t>();
    if (n > static_cast<uint64_t>(std::numeric_limits<int>::max())) return E_FAIL;
    out = static_cast<int>(n);
    return S_OK;
  }
  if (v->is_number_integer()) {
    auto n = v->get<int64_t>();
    if (n < std::numeric_limits<int>::min() || n > std::numeric_limits<int>::max()) return E_FAIL;
    out = static_cast<int>(n);
    return S_OK;
  }
  return E_FAIL;
}

HRESULT ReadDouble(const ZOLOmxJsonDocument* v, double& out) {
  if (!v || !v->is_number()) return E_FAIL;
  out = v->get<double>();
  return S_OK;
}

HRESULT ReadString(const ZOLOmxJsonDocument* v, ZOLUnicodeString& out) {
  if (!v || !v->is_string()) return E_FAIL;
  out = ZOLUnicodeString(v->get_ref<const std::string&>());
  return S_OK;
}

}  // namespace

ZOLOmxJsonArray::ZOLOmxJsonArray(const ZOLOmxAny& any) {
  if (any.value && any.value->is_array()) _array = any;
}

int ZOLOmxJsonArray::Length() const {
  return _array.value ? static_cast<int>(_array.value->size()) : 0;
}

const ZOLOmxJsonDocument* ZOLOmxJsonArray::At(int index) const {
  if (!_array.value || index < 1 || index > Length()) return nullptr;
  return &(*_array.value)[static_cast<size_t>(index - 1)];
}

HRESULT ZOLOmxJsonArray::GetInteger(int index, int& out) const { return ReadInteger(At(index), out); }
HRESULT ZOLOmxJsonArray::GetDouble(int index, double& out) const { return ReadDouble(At(index), out); }
HRESULT ZOLOmxJsonArray::GetString(int index, ZOLUnicodeString& out) const { return ReadString(At(index), out); }

ZOLOmxJsonObject::ZOLOmxJsonObject(const ZOLUnicodeString& text) {
  // No exceptions: a parse error gives a discarded value, which is no object.
  auto document = std::make_shared<ZOLOmxJsonDocument>(
      ZOLOmxJsonDocument::parse(text.str(), nullptr, /*allow_exceptions=*/false));
  if (document->is_object()) _object = ZOLOmxAny{document, document.get()};
}

ZOLOmxJsonObject::ZOLOmxJsonObject(const ZOLOmxAny& any) {
  if (any.value && any.value->is_object()) _object = any;
}

const ZOLOmxJsonDocument* ZOLOmxJsonObject::Member(const char* key) const {
  if (!_object.value || !key) return nullptr;
  auto it = _object.value->find(key);
  return it == _object.value->end() ? nullptr : &*it;
}

HRESULT ZOLOmxJsonObject::GetInteger(const char* key, int& out) const { return ReadInteger(Member(key), out); }
HRESULT ZOLOmxJsonObject::GetDouble(const char* key, double& out) const { return ReadDouble(Member(key), out); }
HRESULT ZOLOmxJsonObject::GetString(const char* key, ZOLUnicodeString& out) const { return ReadString(Member(key), out); }

HRESULT ZOLOmxJsonObject::GetArray(const char* key, ZOLOmxJsonArray& out) const {
  const ZOLOmxJsonDocument* v = Member(key);
  if (!v || !v->is_array()) return E_FAIL;
  out = ZOLOmxJsonArray(ZOLOmxAny{_object.document, v});
  return S_OK;
}
