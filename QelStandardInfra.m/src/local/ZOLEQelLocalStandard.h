// The local standard and the local style: extensions of the model's objects of late type
// "QelLocalStandard" and "QelLocalStyle" that keep overriding values in their attribute
// "overloadedValues".
#pragma once
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "LocalValue.h"
#include "ZOLExtension.h"
#include "ZOLIQelLocalStandard.h"
#include "ZOLIQelLocalStyle.h"
#include "ZOLQelLocalStandardAttributes.h"

// What both share: the value map, the admission of names, the getters, the load and the save.
// They differ in their admission list and in what an indexed setter tests: the first element's
// key "name.1" (the local standard) or the bare name (the local style).
template <class Interface>
class ZOLEQelLocalValues : public ZOLExtensionBase<Interface> {
public:
  enum class IndexedAdmission { FirstElement, BareName };

  HRESULT Reserved() override { return E_NOTIMPL; }
  HRESULT SetOverloadedValue(ZOLUnicodeString iName, const std::vector<ZOLUnicodeString>& iValues) override {
    return iValues.empty() ? E_INVALIDARG : Store(iName.str(), nullptr, LocalValue(iValues));
  }
  HRESULT SetOverloadedValue(ZOLUnicodeString iName, int iIndex, ZOLUnicodeString iValue) override {
    return Store(iName.str(), &iIndex, LocalValue(std::move(iValue)));
  }
  HRESULT SetOverloadedValue(ZOLUnicodeString iName, ZOLUnicodeString iValue) override {
    return Store(iName.str(), nullptr, LocalValue(std::move(iValue)));
  }
  HRESULT SetOverloadedValue(ZOLUnicodeString iName, const std::vector<double>& iValues) override {
    return iValues.empty() ? E_INVALIDARG : Store(iName.str(), nullptr, LocalValue(iValues));
  }
  HRESULT SetOverloadedValue(ZOLUnicodeString iName, int iIndex, double iValue) override {
    return Store(iName.str(), &iIndex, LocalValue(iValue));
  }
  HRESULT SetOverloadedValue(ZOLUnicodeString iName, double iValue) override {
    return Store(iName.str(), nullptr, LocalValue(iValue));
  }
  HRESULT SetOverloadedValue(ZOLUnicodeString iName, const std::vector<int>& iValues) override {
    return iValues.empty() ? E_INVALIDARG : Store(iName.str(), nullptr, LocalValue(iValues));
  }
  HRESULT SetOverloadedValue(ZOLUnicodeString iName, int iIndex, int iValue) override {
    return Store(iName.str(), &iIndex, LocalValue(iValue));
  }
  HRESULT SetOverloadedValue(ZOLUnicodeString iName, int iValue) override {
    return Store(iName.str(), nullptr, LocalValue(iValue));
  }
  HRESULT GetOverloadedValue(ZOLUnicodeString iName, std::vector<ZOLUnicodeString>& oValues) override {
    return GetVector(iName.str(), oValues);
  }
  HRESULT GetOverloadedValue(ZOLUnicodeString iName, int iIndex, ZOLUnicodeString& oValue) override {
    return GetScalar(FindIndexed(iName.str(), iIndex), oValue);
  }
  HRESULT GetOverloadedValue(ZOLUnicodeString iName, ZOLUnicodeString& oValue) override {
    return GetScalar(Find(iName.str()), oValue);
  }
  HRESULT GetOverloadedValue(ZOLUnicodeString iName, std::vector<double>& oValues) override {
    return GetVector(iName.str(), oValues);
  }
  HRESULT GetOverloadedValue(ZOLUnicodeString iName, int iIndex, double& oValue) override {
    return GetScalar(FindIndexed(iName.str(), iIndex), oValue);
  }
  HRESULT GetOverloadedValue(ZOLUnicodeString iName, double& oValue) override {
    return GetScalar(Find(iName.str()), oValue);
  }
  HRESULT GetOverloadedValue(ZOLUnicodeString iName, std::vector<int>& oValues) override {
    return GetVector(iName.str(), oValues);
  }
  HRESULT GetOverloadedValue(ZOLUnicodeString iName, int iIndex, int& oValue) override {
    return GetScalar(FindIndexed(iName.str(), iIndex), oValue);
  }
  HRESULT GetOverloadedValue(ZOLUnicodeString iName, int& oValue) override {
    return GetScalar(Find(iName.str()), oValue);
  }

protected:
  using MapGetter = void (*)(std::shared_ptr<LocalAttributeMap>&);
  // Takes the admission list and reads the attribute, once.
  ZOLEQelLocalValues(ZOLBaseUnknown* iExtended, MapGetter iMap, IndexedAdmission iIndexed);

private:
  void LoadOverloadedValues();
  HRESULT SaveOverloadedValues();
  // A setter's name is taken by value, so its entry key is built in its own text.
  HRESULT Store(std::string& ioKey, const int* iIndex, LocalValue&& iValue);
  // The entry of key, else of "key.1"; null when neither.
  const LocalValue* Find(const std::string& iKey);
  // The entry of "key.index", else of key for index 1; null when neither.
  const LocalValue* FindIndexed(const std::string& iKey, int iIndex);
  template <class T>
  HRESULT GetScalar(const LocalValue* iEntry, T& oValue) const;
  template <class T>
  HRESULT GetVector(const std::string& iKey, std::vector<T>& oValues);

  std::shared_ptr<LocalAttributeMap> attributeMap;
  OverloadedValueMap overloadedValues;
  IndexedAdmission _indexed;
  std::string _suffixed;  // "key.N" of a read, kept so that reads allocate nothing once it has grown
};

// Made in ZOLEQelLocalStandard.cpp, where the getters' helpers are.
extern template class ZOLEQelLocalValues<ZOLIQelLocalStandard>;
extern template class ZOLEQelLocalValues<ZOLIQelLocalStyle>;

class ZOLEQelLocalStandard final : public ZOLEQelLocalValues<ZOLIQelLocalStandard> {
public:
  // Made by the object runtime beside a "QelLocalStandard" object.
  explicit ZOLEQelLocalStandard(ZOLBaseUnknown* iExtended);
  static const ZOLMetaClass* MetaObject();
  const ZOLMetaClass* GetMetaObject() const override { return MetaObject(); }
};

class ZOLEQelLocalStyle final : public ZOLEQelLocalValues<ZOLIQelLocalStyle> {
public:
  // Made by the object runtime beside a "QelLocalStyle" object.
  explicit ZOLEQelLocalStyle(ZOLBaseUnknown* iExtended);
  static const ZOLMetaClass* MetaObject();
  const ZOLMetaClass* GetMetaObject() const override { return MetaObject(); }
};
