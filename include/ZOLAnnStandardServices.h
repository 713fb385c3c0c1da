// Quick questions about a standard file (sheet formats and styles, scale, parent, version)
// without building a standard object. The last file read stays in a one-entry cache keyed by
// path and modification time, so that a dialog asking many times costs one stat per question.
#pragma once
#include <memory>

#include "ZOLDrwStdSheetFormat.h"
#include "ZOLDrwStdSheetStyle.h"
#include "ZOLResult.h"
#include "ZOLUnicodeString.h"

class ZOLAnnStandardXMLParser;
class ZOLAnnStandardXMLNode;

class ZOLAnnStandardServices {
public:
  /// Opens the standard of that name (found as by FindStandardFileInEnv); never fails: an
  /// unreadable standard gives an object without parser, whose queries answer E_FAIL.
  explicit ZOLAnnStandardServices(const char* name);
  /// The services of the standard file at path, read without a lookup by name (and cached alike).
  static std::unique_ptr<ZOLAnnStandardServices> OpenFile(const char* path);
  virtual ~ZOLAnnStandardServices();
  ZOLAnnStandardServices(const ZOLAnnStandardServices&) = delete;
  ZOLAnnStandardServices& operator=(const ZOLAnnStandardServices&) = delete;

  /// 0 when the file can serve as a standard, 1 when it cannot (reported), E_FAIL without parser.
  long CheckXMLStructure();
  /// S_OK with a new[] array of the sheet formats that the caller deletes[]; E_FAIL before version 60 or on a bad structure.
  long GetAvailableSheetFormats(ZOLDrwStdSheetFormat** formats, int& count);
  /// 0 (full styles) or 1 (old styles of scale and projection only) with a new[] array that the caller
  /// deletes[]; E_FAIL before version 30 or on a bad structure.
  long GetAvailableSheetStyles(ZOLDrwStdSheetStyle** styles, int& count);
  /// 0 or 1 as for one style of GetAvailableSheetStyles, for the default sheet style; E_FAIL otherwise.
  long GetDefaultSheetStyle(ZOLDrwStdSheetStyle& style);
  /// S_OK when the default sheet style has a global scale (converted if it can be); E_FAIL otherwise.
  long GetSheetScale(double& scale);
  /// S_OK with the text of Root.Dimension.ParentStandard (empty if none); E_FAIL without parser.
  long GetStandardParentName(ZOLUnicodeString& name);
  /// S_OK with the document's version; E_FAIL without parser or when it is below 1.
  long GetVersion(int& version);
  /// 1 when the document's version is at least version, else 0 (also without parser).
  int IsSwitchable(int version);

  /// The path that the constructor found, empty if none.
  const ZOLUnicodeString& GetPath() const { return _path; }
  /// 1 when the parser is the cache's, shared with later objects of the same unchanged file.
  int IsCached() const { return _cached; }

private:
  struct ByPath {};
  ZOLAnnStandardServices(ByPath, const char* path);
  // Reads _path, or takes the cache's parser when it holds this path at its present modification time.
  void Open();
  long ReadSheetStyle(const ZOLAnnStandardXMLNode* node, ZOLDrwStdSheetStyle& style);
  int DocumentVersion();

  // Shared with the cache: a later object that replaces the cache leaves this one its parser.
  std::shared_ptr<ZOLAnnStandardXMLParser> _parser;
  int _cached = 0;
  ZOLUnicodeString _path;
};
