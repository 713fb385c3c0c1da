// The stand-in data model: objects with attributes, the catalog of this library's startups, the
// element's link to its standard, and the document file.
#include "ZOLOsmDocument.h"

#include <cerrno>
#include <cstring>
#include <nlohmann/json.hpp>
#include <string>
#include <unordered_map>

#include "ZOLExtension.h"
#include "ZOLFile.h"
#include "ZOLIDftElementWithStandard.h"
#include "ZOLISpecAttrAccess.h"
#include "ZOLOsmSUHandler.h"

const IID IID_ZOLISpecObject = {0x5c1d7a20, 0x3f4b, 0x4a8e, {0x9d, 0x62, 0x1e, 0x0b, 0x7f, 0x35, 0xa4, 0x01}};
const IID IID_ZOLISpecAttrAccess = {0x5c1d7a20, 0x3f4b, 0x4a8e, {0x9d, 0x62, 0x1e, 0x0b, 0x7f, 0x35, 0xa4, 0x02}};

ZOLImplementMetaObject(ZOLISpecObject, Interface, ZOLBaseUnknown::MetaObject(), "ZOLSystem", &IID_ZOLISpecObject, "ZOLNull")
ZOLImplementMetaObject(ZOLISpecAttrAccess, Interface, ZOLBaseUnknown::MetaObject(), "ZOLSystem", &IID_ZOLISpecAttrAccess, "ZOLNull")
ZOLImplementMetaObject(ZOLOsmDocument, Implementation, ZOLBaseUnknown::MetaObject(), "ZOLSystem", nullptr, "ZOLNull")

namespace {

// The one implementation of every object of the model; its late type is data, not a class.
class ZOLOsmObject : public ZOLBaseUnknown {
public:
  struct Attribute {
    ZOLUnicodeString name;
    ZOLSpecAttrKind kind;
    ZOLUnicodeString text;
    ZOLISpecObject_var object;
  };

  ZOLOsmObject(ZOLOsmDocument* document, std::string lateType, ZOLUnicodeString name)
      : document(document), lateType(std::move(lateType)), name(std::move(name)) {}

  static const ZOLMetaClass* MetaObject();
  const ZOLMetaClass* GetMetaObject() const override { return MetaObject(); }

  // Then the extensions of the late type, made on demand.
  HRESULT QueryInterface(const IID& iid, void** oObject) override {
    HRESULT hr = ZOLBaseUnknown::QueryInterface(iid, oObject);
    if (SUCCEEDED(hr) || !oObject) return hr;
    if (ZOLAttachmentCreator create = ZOLClassDictionary::FindExtensionCreator(lateType.c_str(), iid))
      *oObject = create(this);
    return *oObject ? S_OK : E_FAIL;
  }

  int Find(std::string_view attribute) const {
    for (size_t i = 0; i < attributes.size(); ++i)
      if (attributes[i].name == attribute) return static_cast<int>(i);
    return -1;
  }

  ZOLSpecAttrKey_var Key(int index) const {
    if (index < 0) return {};
    const Attribute& a = attributes[index];
    return ZOLSpecAttrKey_var::Adopt(new ZOLSpecAttrKey(this, a.name, a.kind, index));
  }

  Attribute* At(const ZOLSpecAttrKey* key, ZOLSpecAttrKind kind) {
    if (!key || key->GetOwner() != this || key->GetKind() != kind || key->GetIndex() < 0 ||
        key->GetIndex() >= static_cast<int>(attributes.size()))
      return nullptr;
    return &attributes[key->GetIndex()];
  }

  ZOLOsmDocument* document;  // no reference: the document holds its objects
  std::string lateType;
  ZOLUnicodeString name;
  std::vector<Attribute> attributes;
};

ZOLImplementMetaObject(ZOLOsmObject, Implementation, ZOLBaseUnknown::MetaObject(), "ZOLSystem", nullptr, "ZOLNull")

ZOLOsmObject* ModelObject(ZOLBaseUnknown* object) {
  return object ? dynamic_cast<ZOLOsmObject*>(object->GetImpl()) : nullptr;
}

class TIEZOLISpecObjectZOLOsmObject : public ZOLTIEBase<ZOLISpecObject, ZOLOsmObject> {
public:
  using ZOLTIEBase::ZOLTIEBase;
  const char* GetType() override { return _impl->lateType.c_str(); }
  const ZOLUnicodeString& GetName() override { return _impl->name; }
  ZOLVar<ZOLBaseUnknown> GetContainer() override { return ZOLVar<ZOLBaseUnknown>(_impl->document); }
  ZOLSpecAttrKey_var AddAttribute(const ZOLUnicodeString& iName, int iKind, int) override {
    if (iName.str().empty() || _impl->Find(iName.str()) >= 0 || (iKind != ZOLSpecAttrString && iKind != ZOLSpecAttrComponent))
      return {};
    _impl->attributes.push_back({iName, static_cast<ZOLSpecAttrKind>(iKind), {}, {}});
    return _impl->Key(static_cast<int>(_impl->attributes.size()) - 1);
  }
};

class TIEZOLISpecAttrAccessZOLOsmObject : public ZOLTIEBase<ZOLISpecAttrAccess, ZOLOsmObject> {
public:
  using ZOLTIEBase::ZOLTIEBase;
  ZOLSpecAttrKey_var GetAttrKey(const char* iName) override { return _impl->Key(iName ? _impl->Find(iName) : -1); }
  HRESULT GetString(const ZOLSpecAttrKey* iKey, ZOLUnicodeString& oValue) override {
    auto* a = _impl->At(iKey, ZOLSpecAttrString);
    if (!a) return E_INVALIDARG;
    oValue = a->text;
    return S_OK;
  }
  HRESULT SetString(const ZOLSpecAttrKey* iKey, const ZOLUnicodeString& iValue) override {
    auto* a = _impl->At(iKey, ZOLSpecAttrString);
    if (!a) return E_INVALIDARG;
    a->text = iValue;
    return S_OK;
  }
  ZOLISpecObject_var GetSpecObject(const ZOLSpecAttrKey* iKey) override {
    auto* a = _impl->At(iKey, ZOLSpecAttrComponent);
    return a ? a->object : ZOLISpecObject_var();
  }
  HRESULT SetSpecObject(const ZOLSpecAttrKey* iKey, ZOLISpecObject* iObject, int, int) override {
    auto* a = _impl->At(iKey, ZOLSpecAttrComponent);
    if (!a) return E_INVALIDARG;
    ZOLOsmObject* held = ModelObject(iObject);
    if (iObject && (!held || held->document != _impl->document)) return E_FAIL;
    a->object = iObject;
    return S_OK;
  }
};

template <class Interface, class TIE>
void* AttachToObject(ZOLBaseUnknown* object) {
  return ZOLAttachTIE<Interface, TIE, ZOLOsmObject>(object, Interface::ClassId());
}

ZOLClassRegistrar s_objectClass(ZOLOsmObject::MetaObject());
ZOLAttachmentRegistrar s_specObject(ZOLOsmObject::MetaObject(), ZOLISpecObject::MetaObject(),
                                    &AttachToObject<ZOLISpecObject, TIEZOLISpecObjectZOLOsmObject>);
ZOLAttachmentRegistrar s_attrAccess(ZOLOsmObject::MetaObject(), ZOLISpecAttrAccess::MetaObject(),
                                    &AttachToObject<ZOLISpecAttrAccess, TIEZOLISpecAttrAccessZOLOsmObject>);

// The drafting element's link to its standard: the object of its component attribute "Standard".
class ZOLOsmElementWithStandard : public ZOLExtensionBase<ZOLIDftElementWithStandard> {
public:
  using ZOLExtensionBase::ZOLExtensionBase;
  static const ZOLMetaClass* MetaObject();
  const ZOLMetaClass* GetMetaObject() const override { return MetaObject(); }
  HRESULT GetStandard(ZOLBaseUnknown** oStandard) override {
    if (!oStandard) return E_INVALIDARG;
    *oStandard = nullptr;
    ZOLOsmObject* element = ModelObject(_impl);
    int index = element ? element->Find("Standard") : -1;
    if (index < 0 || element->attributes[index].kind != ZOLSpecAttrComponent || element->attributes[index].object.IsNull())
      return E_FAIL;
    *oStandard = element->attributes[index].object.Get();
    (*oStandard)->AddRef();
    return S_OK;
  }
};

ZOLImplementMetaObject(ZOLOsmElementWithStandard, Extension, ZOLIDftElementWithStandard::MetaObject(), "ZOLSystem",
                       nullptr, "PCCMemMBDView")

ZOLExtensionRegistrar s_element(
    ZOLOsmElementWithStandard::MetaObject(), ZOLIDftElementWithStandard::MetaObject(),
    &ZOLCreatorOf<ZOLIDftElementWithStandard, &ZOLAttachExtension<ZOLIDftElementWithStandard, ZOLOsmElementWithStandard>>,
    {"PCCMemVOTSheet", "DrwAnnotation"});

// The installed catalogs that this library's startups come from.
struct Startup {
  const char* catalog;
  const char* startup;
  const char* lateType;
};
constexpr Startup kStartups[] = {
    {"VotStandardCatalog.feat", "QelLocalStandard", "QelLocalStandard"},
    {"VotStandardCatalog.feat", "QelLocalStyle", "QelLocalStyle"},
};

using Json = nlohmann::ordered_json;
constexpr const char* kFormat = "ZOLOsmDocument";
constexpr int kFormatVersion = 1;

// Reading a file: every member checked before a single object is made, so that a bad file gives
// one message and no document at all.
struct ReadError {
  std::string what;
};

using JsonTest = bool (Json::*)() const noexcept;

const Json& Member(const Json& object, const char* key, JsonTest is, const char* what, const std::string& where) {
  auto it = object.find(key);
  if (it == object.end() || !((*it).*is)()) throw ReadError{where + ": \"" + key + "\" is missing or not " + what};
  return *it;
}

}  // namespace

ZOLOsmSUHandler::ZOLOsmSUHandler(const ZOLUnicodeString& iStartup, const ZOLUnicodeString&, const ZOLUnicodeString& iCatalog) {
  for (const Startup& s : kStartups)
    if (iCatalog == s.catalog && iStartup == s.startup) _lateType = s.lateType;
}

int ZOLOsmSUHandler::IsValid() const { return _lateType ? 0 : -1; }

HRESULT ZOLOsmSUHandler::Instanciate(ZOLISpecObject_var& oResult, ZOLBaseUnknown* iContainer, const ZOLUnicodeString& iName) const {
  oResult = nullptr;
  auto* document = iContainer ? dynamic_cast<ZOLOsmDocument*>(iContainer->GetImpl()) : nullptr;
  if (!_lateType || !document) return E_FAIL;
  oResult = document->CreateObject(_lateType, iName);
  return oResult.IsNull() ? E_FAIL : S_OK;
}

ZOLOsmDocument::~ZOLOsmDocument() {
  for (ZOLBaseUnknown* o : _objects) {
    auto* object = static_cast<ZOLOsmObject*>(o);
    object->document = nullptr;
    for (auto& a : object->attributes) a.object = nullptr;
  }
  for (ZOLBaseUnknown* o : _objects) o->Release();
}

ZOLISpecObject_var ZOLOsmDocument::CreateObject(const char* iLateType, const ZOLUnicodeString& iName,
                                                std::initializer_list<const char*> iComponents) {
  if (!iLateType || !*iLateType) return {};
  auto* object = new ZOLOsmObject(this, iLateType, iName);
  for (const char* component : iComponents) {
    if (!component || !*component || object->Find(component) >= 0) {
      object->Release();
      return {};
    }
    object->attributes.push_back({component, ZOLSpecAttrComponent, {}, {}});
  }
  _objects.push_back(object);
  return ZOLISpecObject_var(static_cast<ZOLBaseUnknown*>(object));
}

ZOLISpecObject_var ZOLOsmDocument::GetObject(int iIndex) const {
  if (iIndex < 0 || iIndex >= GetObjectCount()) return {};
  return ZOLISpecObject_var(_objects[iIndex]);
}

ZOLISpecObject_var ZOLOsmDocument::FindObject(const ZOLUnicodeString& iName) const {
  for (ZOLBaseUnknown* o : _objects)
    if (static_cast<ZOLOsmObject*>(o)->name == iName) return ZOLISpecObject_var(o);
  return {};
}

HRESULT ZOLOsmDocument::Write(std::string& oText, std::string& oError) const {
  std::unordered_map<const ZOLBaseUnknown*, int> indexOf;
  for (size_t i = 0; i < _objects.size(); ++i) indexOf.emplace(_objects[i], static_cast<int>(i));
  Json objects = Json::array();
  for (ZOLBaseUnknown* o : _objects) {
    auto* object = static_cast<ZOLOsmObject*>(o);
    Json attributes = Json::array();
    for (const auto& a : object->attributes) {
      Json attribute = {{"name", a.name.str()}, {"kind", static_cast<int>(a.kind)}};
      if (a.kind == ZOLSpecAttrString) {
        attribute["text"] = a.text.str();
      } else if (a.object.IsNull()) {
        attribute["object"] = nullptr;
      } else {
        auto it = indexOf.find(a.object->GetImpl());
        if (it == indexOf.end()) {
          oError = "object " + std::to_string(indexOf[o]) + ", attribute \"" + a.name.str() + "\": holds an object of another document";
          return E_FAIL;
        }
        attribute["object"] = it->second;
      }
      attributes.push_back(std::move(attribute));
    }
    objects.push_back({{"type", object->lateType}, {"name", object->name.str()}, {"attributes", std::move(attributes)}});
  }
  Json document = {{"format", kFormat}, {"version", kFormatVersion}, {"objects", std::move(objects)}};
  try {
    oText = document.dump(1);
  } catch (const Json::exception&) {
    oError = "an attribute or a name is no UTF-8 text";
    return E_FAIL;
  }
  oText += '\n';
  return S_OK;
}

HRESULT ZOLOsmDocument::Save(const char* iPath, std::string& oError) const {
  std::string text;
  if (FAILED(Write(text, oError))) return E_FAIL;
  if (FAILED(ZOLWriteFileAtomically(iPath, text))) {
    oError = std::string(iPath) + ": " + std::strerror(errno);
    return E_FAIL;
  }
  return S_OK;
}

ZOLRef<ZOLOsmDocument> ZOLOsmDocument::Read(std::string_view iText, std::string& oError) {
  try {
    const Json top = Json::parse(iText);
    if (!top.is_object()) throw ReadError{"not a JSON object"};
    if (Member(top, "format", &Json::is_string, "a string", "document") != kFormat)
      throw ReadError{std::string("document: \"format\" is not \"") + kFormat + "\""};
    if (Member(top, "version", &Json::is_number_integer, "an integer", "document") != kFormatVersion)
      throw ReadError{"document: \"version\" " + top["version"].dump() + " is not " + std::to_string(kFormatVersion)};
    const Json& objects = Member(top, "objects", &Json::is_array, "an array", "document");
    // Checked first, made next, linked last: components may name objects further on.
    for (size_t i = 0; i < objects.size(); ++i) {
      const std::string where = "objects[" + std::to_string(i) + "]";
      const Json& object = objects[i];
      if (!object.is_object()) throw ReadError{where + ": not an object"};
      if (Member(object, "type", &Json::is_string, "a string", where).get_ref<const std::string&>().empty())
        throw ReadError{where + ": \"type\" is empty"};
      Member(object, "name", &Json::is_string, "a string", where);
      const Json& attributes = Member(object, "attributes", &Json::is_array, "an array", where);
      for (size_t j = 0; j < attributes.size(); ++j) {
        const std::string at = where + ".attributes[" + std::to_string(j) + "]";
        const Json& a = attributes[j];
        if (!a.is_object()) throw ReadError{at + ": not an object"};
        const auto& name = Member(a, "name", &Json::is_string, "a string", at).get_ref<const std::string&>();
        if (name.empty()) throw ReadError{at + ": \"name\" is empty"};
        for (size_t k = 0; k < j; ++k)
          if (attributes[k].is_object() && attributes[k]["name"] == name) throw ReadError{at + ": \"" + name + "\" is given twice"};
        const Json& kind = Member(a, "kind", &Json::is_number_integer, "an integer", at);
        if (kind == static_cast<int>(ZOLSpecAttrString)) {
          Member(a, "text", &Json::is_string, "a string", at);
        } else if (kind == static_cast<int>(ZOLSpecAttrComponent)) {
          auto held = a.find("object");
          if (held == a.end() || !(held->is_null() || (held->is_number_integer() && *held >= 0 && *held < objects.size())))
            throw ReadError{at + ": \"object\" is neither null nor the index of an object"};
        } else {
          throw ReadError{at + ": \"kind\" " + kind.dump() + " is neither 9 (component) nor 18 (string)"};
        }
      }
    }
    auto document = ZOLRef<ZOLOsmDocument>::Adopt(new ZOLOsmDocument);
    for (const Json& object : objects) {
      auto* made = new ZOLOsmObject(document.get(), object["type"].get<std::string>(), object["name"].get<std::string>());
      for (const Json& a : object["attributes"])
        made->attributes.push_back({a["name"].get<std::string>(), static_cast<ZOLSpecAttrKind>(a["kind"].get<int>()),
                                    a["kind"] == static_cast<int>(ZOLSpecAttrString) ? a["text"].get<std::string>() : "",
                                    {}});
      document->_objects.push_back(made);
    }
    for (size_t i = 0; i < objects.size(); ++i) {
      auto* made = static_cast<ZOLOsmObject*>(document->_objects[i]);
      const Json& attributes = objects[i]["attributes"];
      for (size_t j = 0; j < attributes.size(); ++j)
        if (made->attributes[j].kind == ZOLSpecAttrComponent && !attributes[j]["object"].is_null())
          made->attributes[j].object = ZOLISpecObject_var(document->_objects[attributes[j]["object"].get<size_t>()]);
    }
    return document;
  } catch (const ReadError& e) {
    oError = e.what;
  } catch (const Json::exception& e) {
    oError = std::string("not JSON: ") + e.what();
  }
  return {};
}

ZOLRef<ZOLOsmDocument> ZOLOsmDocument::Load(const char* iPath, std::string& oError) {
  std::string bytes;
  if (!iPath || FAILED(ZOLReadFile(iPath, bytes))) {
    oError = std::string(iPath ? iPath : "(null)") + ": cannot be read";
    return {};
  }
  ZOLRef<ZOLOsmDocument> document = Read(bytes, oError);
  if (!document) oError = std::string(iPath) + ": " + oError;
  return document;
}
