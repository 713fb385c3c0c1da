// The admission lists of local standards and local styles: the parameter paths that a local
// object may override.
#pragma once
#include <memory>
#include <string>
#include <unordered_map>

/// Dotted parameter path to its ordinal as text ("1", "2", ...); only the presence of a key decides.
using LocalAttributeMap = std::unordered_map<std::string, std::string>;

namespace ZOLQelLocalStandardAttributes {

/// Sets handle to the one map of local standards (66 paths), built on first use and shared by every caller.
void GetLocalStandardMap(std::shared_ptr<LocalAttributeMap>& handle);
/// Sets handle to the one map of local styles (114 paths), built on first use and shared by every caller.
void GetLocalStyleMap(std::shared_ptr<LocalAttributeMap>& handle);

}  // namespace ZOLQelLocalStandardAttributes
