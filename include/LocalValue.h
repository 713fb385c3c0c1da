// One overriding value of a local standard or style, and the map of them that a local object owns.
#pragma once
#include <cstdint>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "ZOLUnicodeString.h"

/// Which member of a LocalValue is live; any other number is no kind and is stored as "invalid".
enum class LocalValueKind : int32_t {
  Int = 0,
  Double = 1,
  String = 2,
  IntVector = 3,
  DoubleVector = 4,
  StringVector = 5,
};

/// One overriding value: the member that kind selects is live, the others stay empty or zero.
struct LocalValue {
  int32_t intValue = 0;
  double doubleValue = 0.0;
  ZOLUnicodeString stringValue;
  std::vector<int32_t> intVector;
  std::vector<double> doubleVector;
  std::vector<ZOLUnicodeString> stringVector;
  LocalValueKind kind = LocalValueKind::Int;

  /// The integer 0.
  LocalValue() = default;
  /// An Int value.
  explicit LocalValue(int32_t value) : intValue(value), kind(LocalValueKind::Int) {}
  /// A Double value.
  explicit LocalValue(double value) : doubleValue(value), kind(LocalValueKind::Double) {}
  /// A String value.
  explicit LocalValue(ZOLUnicodeString value) : stringValue(std::move(value)), kind(LocalValueKind::String) {}
  /// An IntVector value.
  explicit LocalValue(std::vector<int32_t> values) : intVector(std::move(values)), kind(LocalValueKind::IntVector) {}
  /// A DoubleVector value.
  explicit LocalValue(std::vector<double> values) : doubleVector(std::move(values)), kind(LocalValueKind::DoubleVector) {}
  /// A StringVector value.
  explicit LocalValue(std::vector<ZOLUnicodeString> values)
      : stringVector(std::move(values)), kind(LocalValueKind::StringVector) {}

  /// 1 when kind and every member are equal.
  friend bool operator==(const LocalValue&, const LocalValue&) = default;
};

/// Parameter path, possibly with an index suffix such as ".3", to its overriding value.
using OverloadedValueMap = std::unordered_map<std::string, LocalValue>;
