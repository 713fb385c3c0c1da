// The styles of a standard as the style manager hands them out.
#pragma once
#include <string>
#include <utility>
#include <vector>

#include "QelstdWide.h"
#include "ZOLIDftStyle.h"
#include "ZOLIDftStyleManager.h"
#include "ZOLIUnknownList.h"

namespace qelstd {

/// Appends the type and name of each style of a type (every type when empty), type by type in
/// document order; false when the manager refuses the type.
inline bool ListStyles(ZOLIDftStyleManager* manager, const std::string& type,
                       std::vector<std::pair<std::string, std::string>>& styles) {
  ZOLIUnknownList* raw = nullptr;
  const std::wstring wtype = Wide(type);
  if (FAILED(manager->GetStyles(type.empty() ? nullptr : wtype.c_str(), &raw, nullptr))) {
    if (raw) raw->Release();
    return false;
  }
  ZOLIUnknownList_var list = ZOLIUnknownList_var::Adopt(raw);
  int count = 0;
  list->Count(&count);
  for (int i = 0; i < count; ++i) {
    ZOLBaseUnknown* item = nullptr;
    if (FAILED(list->Item(i, &item))) continue;
    ZOLIDftStyle_var style(item);
    item->Release();
    if (style.IsNull()) continue;
    wchar_t *t = nullptr, *n = nullptr;
    style->GetType(&t);
    style->GetName(&n);
    styles.emplace_back(Narrow(t), Narrow(n));
  }
  return true;
}

}  // namespace qelstd
