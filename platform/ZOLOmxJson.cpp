// JSON objects and arrays over nlohmann's ordered_json, shared until changed.
#include <limits>

#include "detail/ZOLOmxJson.h"

namespace {

using Document = ZOLOmxJsonDocument;
using Kind = nlohmann::json::value_t;

// Deeper text is refused: every walk of a document, the library's and the JSON library's own
// printing, recurses once a level.
constexpr int kMaxDepth = 512;

Document* Get(const std::shared_ptr<void>& p) { return static_cast<Document*>(p.get()); }

// A view of a node inside the document that owner keeps alive.
std::shared_ptr<void> Alias(const std::shared_ptr<void>& owner, const Document& node) {
  return std::shared_ptr<void>(owner, const_cast<Document*>(&node));
}

// The node to change: a new one of that kind when there is none, a copy of its own while another
// object or view shares the document.
Document& Writable(std::shared_ptr<void>& p, Kind kind) {
  if (!p) p = std::make_shared<Document>(kind);
  else if (p.use_count() > 1) p = std::make_shared<Document>(*Get(p));
  return *Get(p);
}

// The value of an object or array given away: moved out when nothing else shares it, else copied.
Document Take(std::shared_ptr<void>& p, Kind kind) {
  if (!p) return Document(kind);
  if (p.use_count() > 1) return *Get(p);
  Document taken = std::move(*Get(p));
  p.reset();
  return taken;
}

HRESULT ReadInteger(const Document* v, int& out) {
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

HRESULT ReadDouble(const Document* v, double& out) {
  if (!v || !v->is_number()) return E_FAIL;
  out = v->get<double>();
  return S_OK;
}

HRESULT ReadString(const Document* v, ZOLUnicodeString& out) {
  if (!v || !v->is_string()) return E_FAIL;
  out = ZOLUnicodeString(v->get_ref<const std::string&>());
  return S_OK;
}

}  // namespace

bool ZOLOmxAny::IsObject() const { return _value && Get(_value)->is_object(); }
bool ZOLOmxAny::IsArray() const { return _value && Get(_value)->is_array(); }

// --- Arrays ---

ZOLOmxJsonArray::ZOLOmxJsonArray(const ZOLOmxAny& any) {
  if (any.IsArray()) _array = any._value;
}

int ZOLOmxJsonArray::Length() const { return _array ? static_cast<int>(Get(_array)->size()) : 0; }

ZOLOmxAny ZOLOmxJsonArray::GetAny(int index) const {
  ZOLOmxAny any;
  if (index >= 1 && index <= Length()) any._value = Alias(_array, (*Get(_array))[static_cast<size_t>(index - 1)]);
  return any;
}

HRESULT ZOLOmxJsonArray::GetInteger(int index, int& out) const { return ReadInteger(Get(GetAny(index)._value), out); }
HRESULT ZOLOmxJsonArray::GetDouble(int index, double& out) const { return ReadDouble(Get(GetAny(index)._value), out); }
HRESULT ZOLOmxJsonArray::GetString(int index, ZOLUnicodeString& out) const { return ReadString(Get(GetAny(index)._value), out); }

HRESULT ZOLOmxJsonArray::GetJsonObject(int index, ZOLOmxJsonObject& out) const {
  ZOLOmxAny any = GetAny(index);
  if (!any.IsObject()) return E_FAIL;
  out = ZOLOmxJsonObject(any);
  return S_OK;
}

void ZOLOmxJsonArray::Reserve(int elements) {
  if (elements > 0) Writable(_array, Kind::array).get_ref<Document::array_t&>().reserve(static_cast<size_t>(elements));
}

HRESULT ZOLOmxJsonArray::PutString(std::string_view value) {
  Writable(_array, Kind::array).emplace_back(value);
  return S_OK;
}

HRESULT ZOLOmxJsonArray::PutJsonObject(const ZOLOmxJsonObject& value) {
  const Document* v = Get(value._object);
  Writable(_array, Kind::array).push_back(v ? *v : Document(Kind::object));
  return S_OK;
}

HRESULT ZOLOmxJsonArray::PutJsonObject(ZOLOmxJsonObject&& value) {
  Writable(_array, Kind::array).push_back(Take(value._object, Kind::object));
  return S_OK;
}

// --- Objects ---

ZOLOmxJsonObject::ZOLOmxJsonObject(const ZOLUnicodeString& text) {
  bool tooDeep = false;
  const Document::parser_callback_t limit = [&tooDeep](int depth, Document::parse_event_t, Document&) {
    if (depth > kMaxDepth) tooDeep = true;
    return !tooDeep;
  };
  // No exceptions: a parse error gives a discarded value, which is no object.
  auto document = std::make_shared<Document>(Document::parse(text.str(), limit, /*allow_exceptions=*/false));
  _valid = document->is_object() && !tooDeep;
  if (_valid) _object = std::move(document);
}

ZOLOmxJsonObject::ZOLOmxJsonObject(const ZOLOmxAny& any) {
  if (any.IsObject()) _object = any._value;
}

std::string ZOLOmxJsonObject::ToString(int indent) const {
  if (!_object) return "{}";
  return Get(_object)->dump(indent, ' ', false, nlohmann::json::error_handler_t::replace);
}

int ZOLOmxJsonObject::Length() const { return _object ? static_cast<int>(Get(_object)->size()) : 0; }

void ZOLOmxJsonObject::MemberAt(int index, std::string_view& key, ZOLOmxAny& value) const {
  // Members stand in a vector of pairs, so an index reaches one directly.
  const auto& member = *(Get(_object)->get_ref<const Document::object_t&>().begin() + index);
  key = member.first;
  value._value = Alias(_object, member.second);
}

namespace {

const Document* Member(const std::shared_ptr<void>& object, const char* key) {
  if (!object || !key) return nullptr;
  const Document& o = *Get(object);
  auto it = o.find(key);
  return it == o.end() ? nullptr : &*it;
}

}  // namespace

HRESULT ZOLOmxJsonObject::GetInteger(const char* key, int& out) const { return ReadInteger(Member(_object, key), out); }
HRESULT ZOLOmxJsonObject::GetDouble(const char* key, double& out) const { return ReadDouble(Member(_object, key), out); }
HRESULT ZOLOmxJsonObject::GetString(const char* key, ZOLUnicodeString& out) const { return ReadString(Member(_object, key), out); }

HRESULT ZOLOmxJsonObject::GetArray(const char* key, ZOLOmxJsonArray& out) const {
  const Document* v = Member(_object, key);
  if (!v || !v->is_array()) return E_FAIL;
  out._array = Alias(_object, *v);
  return S_OK;
}

HRESULT ZOLOmxJsonObject::GetJsonObject(const char* key, ZOLOmxJsonObject& out) const {
  const Document* v = Member(_object, key);
  if (!v || !v->is_object()) return E_FAIL;
  out._object = Alias(_object, *v);
  out._valid = true;
  return S_OK;
}

ZOLOmxJsonObject ZOLOmxJsonObject::OptJsonObject(const char* key) const {
  ZOLOmxJsonObject out;
  GetJsonObject(key, out);
  return out;
}

ZOLOmxJsonArray ZOLOmxJsonObject::OptJsonArray(const char* key) const {
  ZOLOmxJsonArray out;
  GetArray(key, out);
  return out;
}

std::string_view ZOLOmxJsonObject::OptString(const char* key) const {
  const Document* v = Member(_object, key);
  return v && v->is_string() ? std::string_view(v->get_ref<const std::string&>()) : std::string_view();
}

void ZOLOmxJsonObject::Reserve(int members) {
  if (members > 0) Writable(_object, Kind::object).get_ref<Document::object_t&>().reserve(static_cast<size_t>(members));
}

namespace {

// Sets a member: in place when the key exists (ordered_json keeps its position), else at the end.
template <class Value>
HRESULT Put(std::shared_ptr<void>& object, const ZOLOmxKeyString& key, Value&& value) {
  Document& o = Writable(object, Kind::object);
  const std::string_view k = key.view();
  auto it = o.find(k);
  if (it != o.end()) *it = std::forward<Value>(value);
  else o.get_ref<Document::object_t&>().emplace_back(std::string(k), std::forward<Value>(value));
  return S_OK;
}

}  // namespace

HRESULT ZOLOmxJsonObject::PutObject(const ZOLOmxKeyString& key, const ZOLOmxJsonObject& value) {
  const Document* v = Get(value._object);
  return Put(_object, key, v ? *v : Document(Kind::object));
}

HRESULT ZOLOmxJsonObject::PutObject(const ZOLOmxKeyString& key, ZOLOmxJsonObject&& value) {
  return Put(_object, key, Take(value._object, Kind::object));
}

HRESULT ZOLOmxJsonObject::PutArray(const ZOLOmxKeyString& key, const ZOLOmxJsonArray& value) {
  const Document* v = Get(value._array);
  return Put(_object, key, v ? *v : Document(Kind::array));
}

HRESULT ZOLOmxJsonObject::PutArray(const ZOLOmxKeyString& key, ZOLOmxJsonArray&& value) {
  return Put(_object, key, Take(value._array, Kind::array));
}

HRESULT ZOLOmxJsonObject::PutString(const ZOLOmxKeyString& key, std::string_view value) { return Put(_object, key, Document(value)); }
HRESULT ZOLOmxJsonObject::PutInteger(const ZOLOmxKeyString& key, int value) { return Put(_object, key, Document(value)); }
HRESULT ZOLOmxJsonObject::PutDouble(const ZOLOmxKeyString& key, double value) { return Put(_object, key, Document(value)); }
