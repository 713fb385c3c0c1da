#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "ZOLDftStandardServices.h"
#include "ZOLIStandardManager.h"
#include "ZOLIStandardObject.h"
#include "ZOLIStandardValue.h"
#include "ZOLListValZOLIStandardObject_var.h"
#include "ZOLReportCountTest.h"
#include "ZOLStandardObjectTestSupport.h"
#include "standard/ZOLVotStandardValue.h"

namespace {

ZOLIDrwStandard_var Standard() {
  return qeltest::FromBody(
      "<std:node name=\"Dimension\"><std:node name=\"ParentStandard\"><std:strval>ISO</std:strval></std:node>"
      "<std:node name=\"Gap\"><std:floatval>2.5</std:floatval></std:node>"
      "<std:node name=\"Mode\"><std:intval>4</std:intval></std:node>"
      "<std:node name=\"Seg\"><std:intval>3</std:intval><std:intval>4</std:intval></std:node>"
      "<std:node name=\"Dash\"><std:floatval>1.5</std:floatval><std:floatval>2.5</std:floatval></std:node>"
      "<std:node name=\"Names\"><std:strval>a</std:strval><std:strval>b</std:strval></std:node></std:node>"
      "<std:node name=\"L\"><std:typeval name=\"E\"><std:intval name=\"N\">1</std:intval><std:strval name=\"S\">x</std:strval></std:typeval>"
      "<std:typeval name=\"E\"><std:intval name=\"N\">2</std:intval><std:strval name=\"S\">y</std:strval></std:typeval></std:node>");
}

ZOLIStandardValue_var ValueOf(ZOLIDrwStandard* s) {
  ZOLIStandardValue* value = nullptr;
  EXPECT_EQ(s->GetStandardValue(&value), S_OK);
  return ZOLIStandardValue_var::Adopt(value);
}

using StandardValue = ZOLReportCountTest;

}  // namespace

TEST_F(StandardValue, ReadsDropTheFirstCharacterAndTakeTheIndexFromThePointer) {
  ZOLIDrwStandard_var s = Standard();
  ZOLIStandardValue_var v = ValueOf(s);
  ASSERT_FALSE(v.IsNull());
  int one = 1, two = 2;
  ZOLUnicodeString text("kept");
  EXPECT_EQ(v->GetValue(".Dimension.ParentStandard", &one, &text), S_OK);
  EXPECT_EQ(text.str(), "ISO");
  EXPECT_EQ(v->GetValue("xL.S", &two, &text), S_OK);
  EXPECT_EQ(text.str(), "y");
  text = "kept";
  EXPECT_EQ(v->GetValue("Dimension.ParentStandard", &one, &text), E_FAIL);  // reads "imension..."
  EXPECT_EQ(v->GetValue("", &one, &text), E_FAIL);
  EXPECT_EQ(v->GetValue(nullptr, &one, &text), E_FAIL);
  EXPECT_EQ(text.str(), "kept");
  double d = 0;
  EXPECT_EQ(v->GetValue("/Dimension.Gap", &one, &d), S_OK);
  EXPECT_EQ(d, 2.5);
  int i = 0;
  EXPECT_EQ(v->GetValue(".L.N", &two, &i), S_OK);
  EXPECT_EQ(i, 2);
  double reals[4] = {};
  int count = 0;
  EXPECT_EQ(v->GetValue(".Dimension.Dash", reals, &count), S_OK);
  EXPECT_EQ(std::vector<double>(reals, reals + count), (std::vector<double>{1.5, 2.5}));
  ZOLUnicodeString a, b;
  ZOLUnicodeString* texts[] = {&a, &b};
  EXPECT_EQ(v->GetValue(".Dimension.Names", texts, &count), S_OK);
  EXPECT_EQ(a.str() + b.str(), "ab");
  // Null outputs and indexes are refused.
  EXPECT_EQ(v->GetValue(".Dimension.ParentStandard", &one, static_cast<ZOLUnicodeString*>(nullptr)), E_UNEXPECTED);
  EXPECT_EQ(v->GetValue(".Dimension.Gap", nullptr, &d), E_UNEXPECTED);
  EXPECT_EQ(v->GetValue(".Dimension.Mode", &one, static_cast<int*>(nullptr)), E_UNEXPECTED);
  reports = 3;
}

TEST_F(StandardValue, EverySlotButTheReadsIsAReportedStub) {
  ZOLIDrwStandard_var s = Standard();
  ZOLIStandardValue_var v = ValueOf(s);
  ZOLIStandardManager_var m(v.Get());
  ZOLIStandardObject_var o(v.Get());
  ASSERT_FALSE(m.IsNull());
  ASSERT_FALSE(o.IsNull());
  std::vector<std::function<HRESULT()>> stubs = {
      [&] { return v->Reserved1(); },  [&] { return v->Reserved2(); },  [&] { return v->Reserved3(); },
      [&] { return v->Reserved4(); },  [&] { return v->Reserved10(); }, [&] { return v->Reserved11(); },
      [&] { return v->Reserved12(); }, [&] { return v->Reserved13(); }, [&] { return v->Reserved14(); },
      [&] { return v->Reserved15(); }, [&] { return v->Reserved16(); }, [&] { return v->Reserved17(); },
      [&] { return v->Reserved18(); }, [&] { return v->Reserved19(); }, [&] { return v->Reserved20(); },
      [&] { return v->Reserved21(); }, [&] { return v->Reserved22(); }, [&] { return v->Reserved23(); },
      [&] { return v->Reserved24(); }, [&] { return m->Reserved1(); },  [&] { return m->Reserved3(); },
      [&] { return m->Reserved4(); },  [&] { return m->Reserved5(); },  [&] { return m->Reserved6(); },
      [&] { return m->Reserved7(); },  [&] { return m->Reserved8(); },  [&] { return m->Reserved9(); },
      [&] { return m->Reserved10(); }, [&] { return m->Reserved11(); }, [&] { return m->Reserved12(); },
      [&] { return o->Reserved2(); },  [&] { return o->Reserved3(); },
  };
  for (size_t k = 0; k < stubs.size(); ++k) EXPECT_EQ(stubs[k](), E_NOTIMPL) << "stub " << k;
  EXPECT_EQ(r.CountContaining("NOT_IMPLEMENTED..."), static_cast<int>(stubs.size()));
  reports = static_cast<int>(stubs.size());
}

TEST_F(StandardValue, TheIntegerArraySlotRefusesAMissingStandardFirst) {
  ZOLVotStandardValue unbound(nullptr);
  int one = 1, i = 7;
  EXPECT_EQ(unbound.ValueReserved10(), E_UNEXPECTED);
  EXPECT_EQ(unbound.GetValue(".Dimension.Mode", &one, &i), E_UNEXPECTED);
  EXPECT_EQ(i, 7);
  EXPECT_EQ(r.CountContaining("NULL handler"), 2);
  EXPECT_EQ(r.CountContaining("NOT_IMPLEMENTED..."), 0);
  reports = 2;
  unbound.AddRef();  // a stack object: the count must never reach zero
}

TEST_F(StandardValue, RootObjectIsTheObjectAndItsSubObjectsAreItself63Times) {
  ZOLIDrwStandard_var s = Standard();
  ZOLIStandardValue_var v = ValueOf(s);
  ZOLIStandardManager_var m(v.Get());
  ZOLIStandardObject* root = nullptr;
  ASSERT_EQ(m->GetRootObject(0, &root), S_OK);
  ASSERT_NE(root, nullptr);
  EXPECT_EQ(root->GetImpl(), v->GetImpl());
  ZOLListValZOLIStandardObject_var list;
  ASSERT_EQ(root->GetSubObjects(&list), S_OK);
  EXPECT_EQ(list.Size(), 63);
  for (int i = 1; i <= 5; ++i) list.Append(root);
  list.RemoveAll();
  for (int i = 1; i <= 5; ++i) list.Append(root);
  ASSERT_EQ(root->GetSubObjects(&list), S_OK);
  EXPECT_EQ(list.Size(), 68);
  for (int i = 1; i <= list.Size(); ++i) EXPECT_EQ(list[i].Get(), root);
  EXPECT_EQ(root->GetSubObjects(nullptr), E_UNEXPECTED);
  EXPECT_EQ(m->GetRootObject(0, nullptr), E_INVALIDARG);
  reports = 2;
  root->Release();
}

TEST_F(StandardValue, AValueObjectKeepsItselfAndItsStandardAlive) {
  ZOLVotStandardValue* impl = nullptr;
  {
    ZOLIDrwStandard_var s = Standard();
    ZOLIStandardValue_var v = ValueOf(s);
    impl = dynamic_cast<ZOLVotStandardValue*>(v->GetImpl());
    ASSERT_NE(impl, nullptr);
    EXPECT_EQ(impl->RefCount(), 2u);  // the caller's and its own
    char *first = nullptr, *second = nullptr;
    ZOLIStandardValue* other = nullptr;
    ASSERT_EQ(s->GetStandardValue(&other, &first, &second), S_OK);
    EXPECT_NE(other->GetImpl(), impl);  // a new object per call
    EXPECT_STREQ(first, "");
    EXPECT_STREQ(second, "");
    delete[] first;
    delete[] second;
    other->Release();
    EXPECT_EQ(s->GetStandardValue(nullptr, &first, &second), E_INVALIDARG);
  }
  EXPECT_EQ(impl->RefCount(), 1u);
  int one = 1, i = 0;
  void* value = nullptr;
  ASSERT_EQ(impl->QueryInterface(IID_ZOLIStandardValue, &value), S_OK);
  EXPECT_EQ(static_cast<ZOLIStandardValue*>(value)->GetValue(".Dimension.Mode", &one, &i), S_OK);
  EXPECT_EQ(i, 4);
  static_cast<ZOLIStandardValue*>(value)->Release();
  EXPECT_EQ(CreateStandardValue(nullptr, nullptr), E_UNEXPECTED);
  reports = 1;
}
