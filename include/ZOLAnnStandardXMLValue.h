// A typed value of the editable standard tree; every kind is held as text.
#pragma once
#include "ZOLRefCounted.h"
#include "ZOLUnicodeString.h"

class ZOLAnnStandardXMLNode;

class ZOLAnnStandardXMLValue : public ZOLRefCounted {
public:
  enum Type { NoValue = 0, IntValue = 1, FloatValue = 2, StringValue = 3, EnumValue = 4, ColorValue = 5 };

  /// A value with one reference held by the creator. Note that the text comes before the name.
  ZOLAnnStandardXMLValue(Type type, const ZOLUnicodeString& value, const ZOLUnicodeString& name, int rangeVal);

  /// The kind, fixed at construction.
  Type GetType() const { return _type; }
  /// The text.
  ZOLUnicodeString GetValue() const { return _value; }
  /// The name: field name, enumeration name, lower bound (rangeVal 1) or empty.
  ZOLUnicodeString GetValueName() const { return _name; }
  /// 1 when the name holds a lower bound.
  int GetRangeVal() const { return _rangeVal; }
  /// The text, without a copy.
  const ZOLUnicodeString& Value() const { return _value; }
  /// The name, without a copy.
  const ZOLUnicodeString& Name() const { return _name; }

  /// Replaces the text.
  void SetValue(ZOLUnicodeString value) { _value = std::move(value); }
  /// Replaces the range flag.
  void SetRangeVal(int rangeVal) { _rangeVal = rangeVal; }

  /// A new value with the same four fields (one reference for the caller); null if allocation fails.
  ZOLAnnStandardXMLValue* Clone() const;
  /// Number of enumeration faults of this value against enumRoot: 0 or 1 (the fault is printed).
  int Check(ZOLAnnStandardXMLNode* enumRoot, ZOLUnicodeString path);

protected:
  ~ZOLAnnStandardXMLValue() override;

private:
  Type _type;
  ZOLUnicodeString _name;
  ZOLUnicodeString _value;
  int _rangeVal;
};
