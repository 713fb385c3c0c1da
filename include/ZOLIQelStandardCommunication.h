// A standard object as one JSON object, for exchange with other services.
#pragma once
#include "ZOLBaseUnknown.h"
#include "ZOLOmxJsonObject.h"
#include "ZOLVar.h"

/// Interface id of ZOLIQelStandardCommunication.
extern const IID IID_ZOLIQelStandardCommunication;

/// The export of a standard: "EnumDefinition", "TypeDefinition", "Styles" and "Standard Parameters",
/// each an object, in this order. The way back to a standard text is
/// ZOLDftStandardServices::GenerateStandardXML.
class ZOLIQelStandardCommunication : public ZOLBaseUnknown {
public:
  /// IID_ZOLIQelStandardCommunication.
  static const IID& ClassId() { return IID_ZOLIQelStandardCommunication; }
  /// The meta object of the interface.
  static const ZOLMetaClass* MetaObject();

  /// S_OK with the whole standard assigned to oJson.
  virtual HRESULT GetStandardAsJson(ZOLOmxJsonObject& oJson) = 0;
  /// E_NOTIMPL: a standard object is read-only; the argument is dropped.
  virtual HRESULT SetStandardFromJson(ZOLOmxJsonObject iJson) = 0;
};

using ZOLIQelStandardCommunication_var = ZOLVar<ZOLIQelStandardCommunication>;
