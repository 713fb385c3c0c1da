// The numerical display formats and tolerance formats of a standard object, as description records.
#pragma once
#include <memory>
#include <vector>

#include "QelStdToleranceDescription.h"
#include "QelStdUnitDescription.h"
#include "ZOLBaseUnknown.h"
#include "ZOLUnicodeString.h"
#include "ZOLVar.h"

/// Interface id of ZOLIQelStandardContent.
extern const IID IID_ZOLIQelStandardContent;

/// The formats of a standard: the legacy V4 formats, replaced by the standard's own formats of the same
/// name. The records are shared with the standard and must not be changed.
class ZOLIQelStandardContent : public ZOLBaseUnknown {
public:
  ZOLIQelStandardContent() = default;
  ZOLIQelStandardContent(const ZOLIQelStandardContent&) = default;
  ZOLIQelStandardContent& operator=(const ZOLIQelStandardContent&) = default;
  ~ZOLIQelStandardContent() override = default;

  /// IID_ZOLIQelStandardContent.
  static const IID& ClassId() { return IID_ZOLIQelStandardContent; }
  /// "ZOLIQelStandardContent", from the meta object.
  static const char* ClassName() { return MetaObject()->GetClassName(); }
  /// The meta object of the interface.
  static const ZOLMetaClass* MetaObject();

  /// S_OK; appends every unit description, without emptying oUnits first.
  virtual HRESULT GetUnits(std::vector<std::shared_ptr<QelStdUnitDescription>>& oUnits) = 0;
  /// S_OK with the unit of that name, blanks around it ignored; 1 with oUnit unchanged when there is none.
  virtual HRESULT GetUnit(ZOLUnicodeString iName, std::shared_ptr<QelStdUnitDescription>& oUnit) = 0;
  /// S_OK; appends every tolerance description, without emptying oTolerances first.
  virtual HRESULT GetTolerances(std::vector<std::shared_ptr<QelStdToleranceDescription>>& oTolerances) = 0;
  /// S_OK with the tolerance of exactly that name; 1 with oTolerance unchanged when there is none.
  virtual HRESULT GetTolerance(ZOLUnicodeString iName, std::shared_ptr<QelStdToleranceDescription>& oTolerance) = 0;
};

using ZOLIQelStandardContent_var = ZOLVar<ZOLIQelStandardContent>;
