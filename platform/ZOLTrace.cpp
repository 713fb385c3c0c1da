#include "ZOLTrace.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

namespace {

bool ActivatedByEnvironment(std::string_view name) {
  const char* list = std::getenv("ZOL_TRACE");
  if (!list) return false;
  std::string_view rest(list);
  while (!rest.empty()) {
    size_t comma = rest.find(',');
    std::string_view word = rest.substr(0, comma);
    if (word == name || word == "all") return true;
    if (comma == std::string_view::npos) break;
    rest.remove_prefix(comma + 1);
  }
  return false;
}

thread_local int t_depth = 0;
constexpr int kMaxIndent = 64;
const char kSpaces[2 * kMaxIndent + 1] =
    "                                                                "
    "                                                                ";

}  // namespace

ZOLTrace::ZOLTrace(const char* name, const char*) : _name(name ? name : ""), _active(ActivatedByEnvironment(_name)) {}

void ZOLTrace::TraPrint(const char* format, ...) const {
  if (!_active || !format) return;
  va_list args;
  va_start(args, format);
  std::vfprintf(stderr, format, args);
  va_end(args);
}

ZOLQelTraAutoInOutAndIndent::ZOLQelTraAutoInOutAndIndent(const ZOLTrace& trace, const char* scope)
    : _trace(trace), _scope(scope ? scope : "") {
  _trace.TraPrint("%s>> %s\n", Indent(), _scope);
  ++t_depth;
}

ZOLQelTraAutoInOutAndIndent::~ZOLQelTraAutoInOutAndIndent() {
  --t_depth;
  _trace.TraPrint("%s<< %s\n", Indent(), _scope);
}

const char* ZOLQelTraAutoInOutAndIndent::Indent() const {
  int depth = t_depth < 0 ? 0 : (t_depth > kMaxIndent ? kMaxIndent : t_depth);
  return kSpaces + (2 * kMaxIndent - 2 * depth);
}
