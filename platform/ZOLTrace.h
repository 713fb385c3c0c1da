// Named traces, written to standard error when activated.
// Activate by name with ZOL_TRACE=DftStdServs,DftStdDOMCodec (or ZOL_TRACE=all), or with Activate().
#pragma once
#include <string>

class ZOLTrace {
public:
  /// A trace of that name; its output device is "STDERR".
  explicit ZOLTrace(const char* name, const char* device = "STDERR");
  /// 1 when the trace prints.
  bool IsActive() const { return _active; }
  /// Switches the trace on or off.
  void Activate(bool on) { _active = on; }
  /// printf-style output when active.
  void TraPrint(const char* format, ...) const __attribute__((format(printf, 2, 3)));
  /// The trace's name.
  const std::string& Name() const { return _name; }

private:
  std::string _name;
  bool _active;
};

/// Scoped entry and exit of a function in a trace; Indent() is the "%s" argument of the formats inside.
class ZOLQelTraAutoInOutAndIndent {
public:
  /// Prints "<indent>>> scope" when the trace is active, and indents what follows.
  ZOLQelTraAutoInOutAndIndent(const ZOLTrace& trace, const char* scope);
  /// Prints "<indent><< scope" and takes the indentation back.
  ~ZOLQelTraAutoInOutAndIndent();
  ZOLQelTraAutoInOutAndIndent(const ZOLQelTraAutoInOutAndIndent&) = delete;
  ZOLQelTraAutoInOutAndIndent& operator=(const ZOLQelTraAutoInOutAndIndent&) = delete;
  /// The indentation of the current depth.
  const char* Indent() const;

private:
  const ZOLTrace& _trace;
  const char* _scope;
};
