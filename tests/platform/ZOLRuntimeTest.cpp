#include <gtest/gtest.h>

#include "ZOLBaseUnknown.h"
#include "ZOLClassDictionary.h"
#include "ZOLTIE.h"
#include "ZOLVar.h"

namespace {

const IID IID_ZOLITestGreeter = {0x1b2c3d4e, 0x1111, 0x2222, {1, 2, 3, 4, 5, 6, 7, 8}};
const IID IID_ZOLITestCounter = {0x1b2c3d4e, 0x1111, 0x2222, {1, 2, 3, 4, 5, 6, 7, 9}};
const IID IID_ZOLITestUnknown = {0x1b2c3d4e, 0x1111, 0x2222, {1, 2, 3, 4, 5, 6, 7, 10}};

class ZOLITestGreeter : public ZOLBaseUnknown {
public:
  static const IID& ClassId() { return IID_ZOLITestGreeter; }
  static const ZOLMetaClass* MetaObject();
  virtual int Greet(int times) = 0;
};
ZOLImplementMetaObject(ZOLITestGreeter, Interface, ZOLBaseUnknown::MetaObject(), "TestModule", &IID_ZOLITestGreeter, "ZOLNull")

class ZOLITestCounter : public ZOLBaseUnknown {
public:
  static const IID& ClassId() { return IID_ZOLITestCounter; }
  static const ZOLMetaClass* MetaObject();
  virtual int Next() = 0;
};
ZOLImplementMetaObject(ZOLITestCounter, Interface, ZOLBaseUnknown::MetaObject(), "TestModule", &IID_ZOLITestCounter, "ZOLNull")

// A TIE class: implements Greet without deriving from the interface.
class ZOLTestGreeterImpl : public ZOLBaseUnknown {
public:
  static int destroyed;
  ~ZOLTestGreeterImpl() override { ++destroyed; }
  static const ZOLMetaClass* MetaObject();
  const ZOLMetaClass* GetMetaObject() const override { return MetaObject(); }
  int Greet(int times) { return 10 * times; }
};
int ZOLTestGreeterImpl::destroyed = 0;
ZOLImplementMetaObject(ZOLTestGreeterImpl, Implementation, ZOLBaseUnknown::MetaObject(), "TestModule", nullptr, "ZOLNull")

class ZOLTestDerivedGreeterImpl : public ZOLTestGreeterImpl {
public:
  static const ZOLMetaClass* MetaObject();
  const ZOLMetaClass* GetMetaObject() const override { return MetaObject(); }
};
ZOLImplementMetaObject(ZOLTestDerivedGreeterImpl, Implementation, ZOLTestGreeterImpl::MetaObject(), "TestModule", nullptr, "ZOLNull")

class TIEZOLITestGreeterZOLTestGreeterImpl : public ZOLTIEBase<ZOLITestGreeter, ZOLTestGreeterImpl> {
public:
  using ZOLTIEBase::ZOLTIEBase;
  int Greet(int times) override { return _impl->Greet(times); }
};

// A BOA class: derives from its interface.
class ZOLTestCounterImpl : public ZOLITestCounter {
public:
  static const ZOLMetaClass* MetaObject();
  const ZOLMetaClass* GetMetaObject() const override { return MetaObject(); }
  int Next() override { return ++_n; }

private:
  int _n = 0;
};
ZOLImplementMetaObject(ZOLTestCounterImpl, Implementation, ZOLITestCounter::MetaObject(), "TestModule", nullptr, "ZOLNull")

void* CreateTIEGreeter(ZOLBaseUnknown* o) {
  return ZOLAttachTIE<ZOLITestGreeter, TIEZOLITestGreeterZOLTestGreeterImpl, ZOLTestGreeterImpl>(o, IID_ZOLITestGreeter);
}
void* CreateBOACounter(ZOLBaseUnknown* o) { return ZOLAttachBOA<ZOLITestCounter, ZOLTestCounterImpl>(o); }

ZOLClassRegistrar s_greeterClass(ZOLTestGreeterImpl::MetaObject());
ZOLAttachmentRegistrar s_greeterTIE(ZOLTestGreeterImpl::MetaObject(), ZOLITestGreeter::MetaObject(), &CreateTIEGreeter);
ZOLAttachmentRegistrar s_counterBOA(ZOLTestCounterImpl::MetaObject(), ZOLITestCounter::MetaObject(), &CreateBOACounter);

}  // namespace

TEST(Runtime, QueryMakesTheTIEOnDemandForTheClassAndItsDerivedClassesAndForwardsToTheImplementation) {
  for (ZOLTestGreeterImpl* impl : std::initializer_list<ZOLTestGreeterImpl*>{new ZOLTestGreeterImpl, new ZOLTestDerivedGreeterImpl}) {
    ZOLVar<ZOLITestGreeter> greeter(static_cast<ZOLBaseUnknown*>(impl));
    ASSERT_FALSE(greeter.IsNull());
    EXPECT_EQ(greeter->Greet(3), 30);
    EXPECT_EQ(greeter->GetImpl(), impl);
    impl->Release();
  }
}

TEST(Runtime, SecondQueryGivesTheSameTIEWhichSharesTheCount) {
  ZOLTestGreeterImpl::destroyed = 0;
  auto* impl = new ZOLTestGreeterImpl;
  void* a = nullptr;
  void* b = nullptr;
  ASSERT_EQ(impl->QueryInterface(IID_ZOLITestGreeter, &a), S_OK);
  ASSERT_EQ(impl->QueryInterface(IID_ZOLITestGreeter, &b), S_OK);
  EXPECT_EQ(a, b);
  EXPECT_EQ(impl->RefCount(), 3u);
  auto* tie = static_cast<ZOLITestGreeter*>(a);
  EXPECT_EQ(tie->AddRef(), 4u);
  impl->Release();
  tie->Release();
  tie->Release();
  EXPECT_EQ(ZOLTestGreeterImpl::destroyed, 0);
  tie->Release();  // the last reference, held through the TIE, takes the object and its TIE
  EXPECT_EQ(ZOLTestGreeterImpl::destroyed, 1);
}

TEST(Runtime, QueryForAnInterfaceTheClassLacksFailsAndGivesNull) {
  auto* impl = new ZOLTestGreeterImpl;
  void* out = impl;
  EXPECT_EQ(impl->QueryInterface(IID_ZOLITestUnknown, &out), E_FAIL);
  EXPECT_EQ(out, nullptr);
  EXPECT_EQ(impl->QueryInterface(IID_ZOLITestGreeter, nullptr), E_INVALIDARG);
  ZOLVar<ZOLITestCounter> counter(static_cast<ZOLBaseUnknown*>(impl));
  EXPECT_TRUE(counter.IsNull());
  EXPECT_EQ(impl->RefCount(), 1u);
  impl->Release();
}

TEST(Runtime, NullHandleThrowsOnUse) {
  ZOLVar<ZOLITestGreeter> greeter;
  EXPECT_TRUE(greeter.IsNull());
  EXPECT_TRUE(greeter == nullptr);
  try {
    greeter->Greet(1);
    ADD_FAILURE() << "no exception";
  } catch (const ZOLNullVarError& e) {
    EXPECT_NE(std::string(e.what()).find("ZOLITestGreeter"), std::string::npos);
  }
}

TEST(Runtime, BOAClassHandsItselfOutAndHandlesTakeAndDropTheirOwnReferences) {
  auto* impl = new ZOLTestCounterImpl;
  {
    ZOLVar<ZOLITestCounter> a(static_cast<ZOLBaseUnknown*>(impl));
    EXPECT_EQ(a.Get(), static_cast<ZOLITestCounter*>(impl));
    EXPECT_EQ(a->Next(), 1);
    ZOLVar<ZOLITestCounter> b = a;
    EXPECT_EQ(impl->RefCount(), 3u);
    ZOLVar<ZOLBaseUnknown> base(a);  // a cast between handles is a query
    EXPECT_EQ(base.Get(), static_cast<ZOLBaseUnknown*>(impl));
    EXPECT_EQ(impl->RefCount(), 4u);
    ZOLVar<ZOLITestCounter> moved = std::move(b);
    EXPECT_EQ(impl->RefCount(), 4u);
  }
  EXPECT_EQ(impl->RefCount(), 1u);
  impl->Release();
}

TEST(Runtime, MetaObjectsAnswerIsAAndIsAKindOfAndAreMadeOnce) {
  auto* impl = new ZOLTestDerivedGreeterImpl;
  EXPECT_TRUE(impl->IsA("ZOLTestDerivedGreeterImpl"));
  EXPECT_FALSE(impl->IsA("ZOLTestGreeterImpl"));
  EXPECT_TRUE(impl->IsAKindOf("ZOLTestGreeterImpl"));
  EXPECT_TRUE(impl->IsAKindOf("ZOLBaseUnknown"));
  EXPECT_FALSE(impl->IsAKindOf("ZOLITestCounter"));
  EXPECT_EQ(ZOLTestDerivedGreeterImpl::MetaObject(), impl->GetMetaObject());
  const ZOLMetaClass* meta = ZOLITestGreeter::MetaObject();
  EXPECT_EQ(meta->GetKind(), ZOLMetaClass::Interface);
  EXPECT_STREQ(meta->GetModuleName(), "TestModule");
  EXPECT_STREQ(meta->GetExtendedClassName(), "ZOLNull");
  EXPECT_TRUE(*meta->GetIID() == IID_ZOLITestGreeter);
  impl->Release();
}

TEST(Runtime, ClassDictionaryFindsRegisteredClassesByName) {
  EXPECT_EQ(ZOLClassDictionary::FindClass("ZOLTestGreeterImpl"), ZOLTestGreeterImpl::MetaObject());
  EXPECT_EQ(ZOLClassDictionary::FindClass("ZOLBaseUnknown"), ZOLBaseUnknown::MetaObject());
  EXPECT_EQ(ZOLClassDictionary::FindClass("NoSuchClass"), nullptr);
  EXPECT_EQ(ZOLClassDictionary::FindCreator(ZOLTestGreeterImpl::MetaObject(), IID_ZOLITestCounter), nullptr);
}
