// Standard objects built from small texts of the dialect, and the inner object behind a handle.
#pragma once
#include <string>

#include "ZOLDftBuiltinStandards.h"
#include "ZOLDftStandardServices.h"
#include "ZOLIDrwStandard.h"
#include "ZOLUnicodeString.h"
#include "standard/ZOLVotTransientStandard.h"

namespace qeltest {

inline const std::string kStdOpen = "<std:node xmlns:std=\"http://www.qelstandardinfra.org/std\" name=\"drafting\">";
inline const std::string kStdClose = "</std:node>";

/// A standard named "T" loaded from a whole text.
inline ZOLIDrwStandard_var LoadText(const std::string& text) {
  ZOLUnicodeString t(text);
  return ZOLDftStandardServices::GetStandardFromBuffer(&t, "T");
}

/// A standard named "T" whose root node holds body.
inline ZOLIDrwStandard_var FromBody(const std::string& body) { return LoadText(kStdOpen + body + kStdClose); }

/// One of the built-in standards, loaded under its own name.
inline ZOLIDrwStandard_var Builtin(const char* name) {
  return ZOLDftStandardServices::GetStandardFromBuffer(ZOLDftBuiltinStandards::GetText(name), name);
}

inline ZOLVotTransientStandard* Impl(ZOLIDrwStandard* s) { return dynamic_cast<ZOLVotTransientStandard*>(s->GetImpl()); }

/// A node of the dialect named name around inner.
inline std::string Node(const std::string& name, const std::string& inner) {
  return "<std:node name=\"" + name + "\">" + inner + "</std:node>";
}

/// The narrow text of a wide one that the callee allocated; frees it.
inline std::string Narrow(wchar_t* text) {
  ZOLUnicodeString s;
  s.BuildFromWChar(text);
  delete[] text;
  return s.str();
}

}  // namespace qeltest
