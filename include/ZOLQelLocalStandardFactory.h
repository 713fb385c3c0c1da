// Making local standards and local styles in the data model, and the creators by which the object
// runtime attaches the local classes to the model's objects.
#pragma once
#include "ZOLBaseUnknown.h"
#include "ZOLIQelLocalStandard.h"
#include "ZOLIQelLocalStdManager.h"
#include "ZOLIQelLocalStyle.h"
#include "ZOLUnicodeString.h"

class ZOLQelLocalStandardFactory {
public:
  /// A factory of the startups "QelLocalStandard" and "QelLocalStyle" of "VotStandardCatalog.feat".
  ZOLQelLocalStandardFactory();
  virtual ~ZOLQelLocalStandardFactory();

  /// S_OK and a new local standard in oResult, made in the container of iOwner and held by its
  /// attribute "LocalStandard" (a standard object) or "LocalAnnStandard" (an annotation);
  /// E_UNEXPECTED, with a report, when any step fails.
  HRESULT CreateLocalStandard(ZOLBaseUnknown* iOwner, ZOLIQelLocalStandard_var& oResult);
  /// S_OK and a new local style in oResult, held by the attribute "LocalStyle" of iOwner;
  /// E_UNEXPECTED, with a report, when any step fails.
  HRESULT CreateLocalStyle(ZOLBaseUnknown* iOwner, ZOLIQelLocalStyle_var& oResult);

  /// The startup of local standards.
  ZOLUnicodeString localStandardStartup;
  /// The startup of local styles.
  ZOLUnicodeString localStyleStartup;
  /// The client id handed to the startup handler, empty.
  ZOLUnicodeString clientId;
  /// The feature catalog of both startups.
  ZOLUnicodeString catalogName;
};

/// The local standard of a "QelLocalStandard" object: a new reference, or null for another object.
ZOLIQelLocalStandard* CreateBOAZOLIQelLocalStandardZOLEQelLocalStandard(ZOLBaseUnknown* iObject);
/// The local style of a "QelLocalStyle" object: a new reference, or null for another object.
ZOLIQelLocalStyle* CreateBOAZOLIQelLocalStyleZOLEQelLocalStyle(ZOLBaseUnknown* iObject);
/// The manager of a view or sheet: a new reference, or null for another object.
ZOLIQelLocalStdManager* CreateBOAZOLIQelLocalStdManagerZOLEQelLocalStdManager(ZOLBaseUnknown* iObject);
/// The manager of an annotation: a new reference, or null for another object.
ZOLIQelLocalStdManager* CreateBOAZOLIQelLocalStdManagerZOLEAnnLocalStdManager(ZOLBaseUnknown* iObject);
