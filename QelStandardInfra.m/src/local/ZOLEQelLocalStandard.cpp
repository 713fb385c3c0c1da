// The local standard and the local style. A value map read from the attribute once, at the
// making of the extension, and the whole attribute rewritten after each change; no code here
// reads the standard, and a getter's 1 sends the caller there.
#include "ZOLEQelLocalStandard.h"

#include <charconv>

#include "ZOLISpecAttrAccess.h"
#include "ZOLQelLocalStandardFactory.h"
#include "ZOLSysLog.h"
#include "local/ZOLQelLocalStandardAttributesJson.h"

const IID IID_ZOLIQelLocalStandard = {0x7e3a51c4, 0x2d19, 0x4f0b, {0x8a, 0x47, 0x6c, 0x15, 0xe9, 0x02, 0xb3, 0x01}};
const IID IID_ZOLIQelLocalStyle = {0x7e3a51c4, 0x2d19, 0x4f0b, {0x8a, 0x47, 0x6c, 0x15, 0xe9, 0x02, 0xb3, 0x02}};

ZOLImplementMetaObject(ZOLIQelLocalStandard, Interface, ZOLBaseUnknown::MetaObject(), "QelStandardInfra",
                       &IID_ZOLIQelLocalStandard, "ZOLNull")
ZOLImplementMetaObject(ZOLIQelLocalStyle, Interface, ZOLBaseUnknown::MetaObject(), "QelStandardInfra",
                       &IID_ZOLIQelLocalStyle, "ZOLNull")
ZOLImplementMetaObject(ZOLEQelLocalStandard, Extension, ZOLIQelLocalStandard::MetaObject(), "QelStandardInfra", nullptr,
                       "QelLocalStandard")
ZOLImplementMetaObject(ZOLEQelLocalStyle, Extension, ZOLIQelLocalStyle::MetaObject(), "QelStandardInfra", nullptr,
                       "QelLocalStyle")

ZOLIQelLocalStandard* CreateBOAZOLIQelLocalStandardZOLEQelLocalStandard(ZOLBaseUnknown* iObject) {
  return ZOLAttachExtension<ZOLIQelLocalStandard, ZOLEQelLocalStandard>(iObject);
}

ZOLIQelLocalStyle* CreateBOAZOLIQelLocalStyleZOLEQelLocalStyle(ZOLBaseUnknown* iObject) {
  return ZOLAttachExtension<ZOLIQelLocalStyle, ZOLEQelLocalStyle>(iObject);
}

namespace {

constexpr const char* kAttribute = "overloadedValues";

ZOLExtensionRegistrar s_localStandard(ZOLEQelLocalStandard::MetaObject(), ZOLIQelLocalStandard::MetaObject(),
                                      &ZOLCreatorOf<ZOLIQelLocalStandard, &CreateBOAZOLIQelLocalStandardZOLEQelLocalStandard>);
ZOLExtensionRegistrar s_localStyle(ZOLEQelLocalStyle::MetaObject(), ZOLIQelLocalStyle::MetaObject(),
                                   &ZOLCreatorOf<ZOLIQelLocalStyle, &CreateBOAZOLIQelLocalStyleZOLEQelLocalStyle>);

// The live member of each kind of value that a getter asks for.
template <class T>
struct Member;
template <>
struct Member<int> {
  static constexpr LocalValueKind scalar = LocalValueKind::Int, vector = LocalValueKind::IntVector;
  static const int& Of(const LocalValue& v) { return v.intValue; }
  static const std::vector<int>& VectorOf(const LocalValue& v) { return v.intVector; }
};
template <>
struct Member<double> {
  static constexpr LocalValueKind scalar = LocalValueKind::Double, vector = LocalValueKind::DoubleVector;
  static const double& Of(const LocalValue& v) { return v.doubleValue; }
  static const std::vector<double>& VectorOf(const LocalValue& v) { return v.doubleVector; }
};
template <>
struct Member<ZOLUnicodeString> {
  static constexpr LocalValueKind scalar = LocalValueKind::String, vector = LocalValueKind::StringVector;
  static const ZOLUnicodeString& Of(const LocalValue& v) { return v.stringValue; }
  static const std::vector<ZOLUnicodeString>& VectorOf(const LocalValue& v) { return v.stringVector; }
};

void AppendIndex(std::string& key, int index) {
  char digits[16];
  auto end = std::to_chars(digits, digits + sizeof digits, index).ptr;
  key += '.';
  key.append(digits, end);
}

}  // namespace

template <class Interface>
ZOLEQelLocalValues<Interface>::ZOLEQelLocalValues(ZOLBaseUnknown* iExtended, MapGetter iMap, IndexedAdmission iIndexed)
    : ZOLExtensionBase<Interface>(iExtended), _indexed(iIndexed) {
  iMap(attributeMap);
  LoadOverloadedValues();
}

ZOLEQelLocalStandard::ZOLEQelLocalStandard(ZOLBaseUnknown* iExtended)
    : ZOLEQelLocalValues(iExtended, &ZOLQelLocalStandardAttributes::GetLocalStandardMap, IndexedAdmission::FirstElement) {}

ZOLEQelLocalStyle::ZOLEQelLocalStyle(ZOLBaseUnknown* iExtended)
    : ZOLEQelLocalValues(iExtended, &ZOLQelLocalStandardAttributes::GetLocalStyleMap, IndexedAdmission::BareName) {}

template <class Interface>
void ZOLEQelLocalValues<Interface>::LoadOverloadedValues() {
  ZOLISpecAttrAccess_var access(this->GetImpl(0));
  if (access.IsNull()) {
    ZOLAssertPointer("NULL handler");
    return;
  }
  ZOLSpecAttrKey_var key = access->GetAttrKey(kAttribute);
  if (!key) return;
  ZOLUnicodeString text;
  access->GetString(key.get(), text);
  ZOLQelLocalStandardAttributes::ParseOverloadedValues(std::move(text.str()), overloadedValues);
}

template <class Interface>
HRESULT ZOLEQelLocalValues<Interface>::SaveOverloadedValues() {
  ZOLISpecAttrAccess_var access(this->GetImpl(0));
  if (access.IsNull()) {
    ZOLAssertPointer("NULL handler");
    return E_UNEXPECTED;
  }
  ZOLSpecAttrKey_var key = access->GetAttrKey(kAttribute);
  if (!key) {
    ZOLISpecObject_var object(this->GetImpl(0));
    if (object.IsNull()) {
      ZOLAssertPointer("");
      return E_UNEXPECTED;
    }
    if (object->AddAttribute(kAttribute, ZOLSpecAttrString, 0)) key = access->GetAttrKey(kAttribute);
    if (!key) return E_FAIL;
  }
  access->SetString(key.get(), ZOLUnicodeString(ZOLQelLocalStandardAttributes::SerializeOverloadedValues(overloadedValues)));
  return S_OK;
}

template <class Interface>
HRESULT ZOLEQelLocalValues<Interface>::Store(std::string& ioKey, const int* iIndex, LocalValue&& iValue) {
  if (!attributeMap) {
    ZOLAssertPointer("");
    return E_UNEXPECTED;
  }
  if (ZOLISpecAttrAccess_var(this->GetImpl(0)).IsNull()) {
    ZOLAssertPointer("NULL handler");
    return E_UNEXPECTED;
  }
  const LocalAttributeMap& admitted = *attributeMap;
  if (!iIndex) {
    // A sequence is admitted through its first element's key: "Patterns.coloring.color" as ".1".
    if (!admitted.count(ioKey)) {
      ioKey += ".1";
      if (!admitted.count(ioKey)) return E_FAIL;
    }
  } else {
    const size_t length = ioKey.size();
    if (_indexed == IndexedAdmission::FirstElement) ioKey += ".1";
    const bool known = admitted.count(ioKey) != 0;
    ioKey.resize(length);
    if (!known) return E_FAIL;
    AppendIndex(ioKey, *iIndex);
  }
  overloadedValues.insert_or_assign(std::move(ioKey), std::move(iValue));
  return SaveOverloadedValues();
}

template <class Interface>
const LocalValue* ZOLEQelLocalValues<Interface>::Find(const std::string& iKey) {
  auto it = overloadedValues.find(iKey);
  if (it == overloadedValues.end() && !overloadedValues.empty()) {
    _suffixed.assign(iKey).append(".1");
    it = overloadedValues.find(_suffixed);
  }
  return it == overloadedValues.end() ? nullptr : &it->second;
}

template <class Interface>
const LocalValue* ZOLEQelLocalValues<Interface>::FindIndexed(const std::string& iKey, int iIndex) {
  if (overloadedValues.empty()) return nullptr;
  _suffixed.assign(iKey);
  AppendIndex(_suffixed, iIndex);
  auto it = overloadedValues.find(_suffixed);
  if (it == overloadedValues.end() && iIndex == 1) it = overloadedValues.find(iKey);
  return it == overloadedValues.end() ? nullptr : &it->second;
}

template <class Interface>
template <class T>
HRESULT ZOLEQelLocalValues<Interface>::GetScalar(const LocalValue* iEntry, T& oValue) const {
  // No conversion between kinds, and no second look under "name.1" for an entry of another kind.
  if (!iEntry || iEntry->kind != Member<T>::scalar) return S_FALSE;
  oValue = Member<T>::Of(*iEntry);
  return S_OK;
}

template <class Interface>
template <class T>
HRESULT ZOLEQelLocalValues<Interface>::GetVector(const std::string& iKey, std::vector<T>& oValues) {
  const LocalValue* entry = Find(iKey);
  if (!entry) return S_FALSE;
  if (entry->kind == Member<T>::vector) {
    oValues = Member<T>::VectorOf(*entry);
    return S_OK;
  }
  if (entry->kind != Member<T>::scalar) return S_FALSE;
  oValues.push_back(Member<T>::Of(*entry));
  return S_OK;
}

template class ZOLEQelLocalValues<ZOLIQelLocalStandard>;
template class ZOLEQelLocalValues<ZOLIQelLocalStyle>;
