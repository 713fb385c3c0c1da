// Value kinds of a standard object, as GetValueType gives them; the gaps are part of the type.
#pragma once

enum ZOLDftStandardValueType {
  /// None or unknown.
  ZOLDftStandardValueTypeUnknown = 0,
  /// "std:intval".
  ZOLDftStandardValueTypeInteger = 3,
  /// "std:floatval".
  ZOLDftStandardValueTypeReal = 4,
  /// "std:strval".
  ZOLDftStandardValueTypeString = 6,
  /// "std:enumval".
  ZOLDftStandardValueTypeEnum = 7,
  /// "std:typeval", a typed entry.
  ZOLDftStandardValueTypeTypedEntry = 8,
};
