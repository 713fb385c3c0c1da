#include "ZOLQelInstCount.h"

#include <map>
#include <string>

#include "ZOLSysLog.h"

namespace {
std::map<std::string, long, std::less<>>& Counters() {
  static std::map<std::string, long, std::less<>> counters;
  return counters;
}
}  // namespace

void ZOLQelInstCount(const char* name, int delta) {
  if (!name || !ZOLDevelopmentStage(0)) return;
  auto& c = Counters();
  auto it = c.find(std::string_view(name));
  if (it == c.end()) it = c.emplace(name, 0).first;
  it->second += delta;
}

long ZOLQelInstCountGet(const char* name) {
  if (!name) return 0;
  auto& c = Counters();
  auto it = c.find(std::string_view(name));
  return it == c.end() ? 0 : it->second;
}
