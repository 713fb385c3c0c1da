// Sheet formats and styles, scale, parent and version of a standard file, with a one-entry
// parser cache keyed by path and modification time.
#include "ZOLAnnStandardServices.h"

#include <clocale>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <sys/stat.h>

#include "ZOLAnnStandardXMLNode.h"
#include "ZOLAnnStandardXMLParser.h"
#include "ZOLDftStandardServices.h"
#include "ZOLDftStdPersistence.h"
#include "ZOLFile.h"
#include "ZOLRefCounted.h"
#include "ZOLSysLog.h"
#include "ZOLTrace.h"

namespace {

ZOLTrace g_trace("DftStdServs");

// The last parser read, shared with the objects that use it: replacing the entry leaves an
// earlier object its parser.
struct ParserCache {
  std::shared_ptr<ZOLAnnStandardXMLParser> parser;
  ZOLUnicodeString path;
  struct timespec modified = {0, 0};
  // 0 empty, 1 filled, 2 and above invalid: nothing sets it to 2, it guards against a broken entry.
  int status = 0;
};

ParserCache& Cache() {
  static ParserCache cache;
  return cache;
}

bool SameTime(const struct timespec& a, const struct timespec& b) { return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec; }

// Sheet sizes are written with "." whatever the locale; the scan follows the process's locale.
bool ScanLocaleReal(const ZOLUnicodeString& text, double& value) {
  std::string adapted = text.str();
  const char* point = std::localeconv()->decimal_point;
  if (point && *point && std::string_view(point) != ".") {
    ZOLUnicodeString s(adapted);
    s.ReplaceSubString(".", point);
    adapted = s.str();
  }
  return std::sscanf(adapted.c_str(), "%le", &value) == 1;
}

// The first value of the sub-node of that name, or null.
const ZOLAnnStandardXMLValue* FirstValueOf(const ZOLAnnStandardXMLNode* node, std::string_view name) {
  const ZOLAnnStandardXMLNode* sub = node ? node->FindNodeByName(name) : nullptr;
  return sub && !sub->Values().empty() ? sub->Values()[0] : nullptr;
}

// S_OK with the format of a record of four values: name, width, height, orientation.
HRESULT ReadSheetFormat(const ZOLAnnStandardXMLNode* node, ZOLDrwStdSheetFormat& format) {
  if (!node || node->GetNumOfValue() != 4) return E_FAIL;
  const auto& values = node->Values();
  int read = 0;
  format.name = values[0]->Value();
  ++read;
  read += ScanLocaleReal(values[1]->Value(), format.width);
  read += ScanLocaleReal(values[2]->Value(), format.height);
  ZOLUnicodeString names[4];
  const ZOLFormatOrientationsType order[4] = {LandscapeByDefault, PortraitByDefault, LandscapeOnly, PortraitOnly};
  bool named = true;
  for (int i = 0; i < 4; ++i) named = SUCCEEDED(ZOLDftStandardServices::GetNameFromEnum(order[i], names[i])) && named;
  if (!named) {
    ZOLAssertMessage("Reference orientations retrieving failed");
  } else {
    for (int i = 0; i < 4; ++i)
      if (values[3]->Value() == names[i]) {
        format.orientation = order[i];
        ++read;
        break;
      }
  }
  format.reserved = 0;
  if (read != 4) {
    ZOLAssertMessage("Bad xml structure");
    return E_FAIL;
  }
  return S_OK;
}

// Reads every child of the branch at path into a new[] array handed to *out: the result of the last
// child. E_FAIL when the branch is missing or empty, or (reported) when a child does not read.
template <typename Record, typename Read>
long ReadBranch(ZOLAnnStandardXMLParser& parser, const char* path, Record** out, int& count, Read read) {
  ZOLRef<ZOLAnnStandardXMLNode> branch = ZOLRef<ZOLAnnStandardXMLNode>::Adopt(parser.GetNodeWithPath(path));
  if (!branch) return E_FAIL;
  count = branch->GetNumOfNode();
  // The bound spares new[] its overflow path (g++ warns on it once the library is linked whole).
  if (count <= 0 || static_cast<size_t>(count) > PTRDIFF_MAX / sizeof(Record)) return E_FAIL;
  std::unique_ptr<Record[]> records(new Record[static_cast<size_t>(count)]);
  long last = S_OK;
  int done = 0;
  for (const ZOLAnnStandardXMLNode* child : branch->SubNodes()) {
    long hr = read(child, records[done]);
    if (hr >= 0) {
      last = hr;
      ++done;
    }
  }
  if (done < count) {
    ZOLAssertMessage("Bad xml structure");
    return E_FAIL;
  }
  *out = records.release();
  return last;
}

}  // namespace

ZOLAnnStandardServices::ZOLAnnStandardServices(const char* name) {
  ZOLQelTraAutoInOutAndIndent scope(g_trace, "ZOLAnnStandardServices::ZOLAnnStandardServices");
  g_trace.TraPrint("%s (%s)\n", scope.Indent(), name ? name : "NULL");
  ZOLDftStandardServices::FindStandardFileInEnv(ZOLUnicodeString(name), _path, false);
  Open();
}

ZOLAnnStandardServices::ZOLAnnStandardServices(ByPath, const char* path) : _path(path) { Open(); }

std::unique_ptr<ZOLAnnStandardServices> ZOLAnnStandardServices::OpenFile(const char* path) {
  return std::unique_ptr<ZOLAnnStandardServices>(new ZOLAnnStandardServices(ByPath(), path));
}

void ZOLAnnStandardServices::Open() {
  ZOLQelTraAutoInOutAndIndent scope(g_trace, "ZOLAnnStandardServices::Open");
  struct stat info;
  const bool stated = ZOLFileStat(_path.ConvertToChar(), &info) == 0;
  ParserCache& cache = Cache();
  if (!stated) {
    g_trace.TraPrint("%sFailed to get stats of %s. Can't cache.\n", scope.Indent(), _path.ConvertToChar());
  } else if (cache.status == 1 && cache.path == _path && SameTime(cache.modified, info.st_mtim)) {
    _parser = cache.parser;
    _cached = 1;
    g_trace.TraPrint("%sUsing cached value for %s.\n", scope.Indent(), _path.ConvertToChar());
    return;
  }

  auto parser = std::make_shared<ZOLAnnStandardXMLParser>();
  if (parser->DecodeXML(_path, 1) != 0 || parser->Check() == 0) parser.reset();
  g_trace.TraPrint("%sCreating a new parser for %s.\n", scope.Indent(), _path.ConvertToChar());
  _parser = std::move(parser);
  if (!stated) return;
  if (cache.status >= 2) {
    ZOLAssertMessage("Cache status is invalid!");
    return;
  }
  // A file that does not read is cached too (as null): asking again costs one stat.
  cache.parser = _parser;
  cache.path = _path;
  cache.modified = info.st_mtim;
  cache.status = 1;
  _cached = 1;
}

ZOLAnnStandardServices::~ZOLAnnStandardServices() = default;

int ZOLAnnStandardServices::DocumentVersion() { return _parser ? _parser->GetVersion() : -1; }

long ZOLAnnStandardServices::GetAvailableSheetFormats(ZOLDrwStdSheetFormat** formats, int& count) {
  if (!_parser || !formats || DocumentVersion() < ZOLDftStdPersistence::GetVersionFromRelease(14)) return E_FAIL;
  return ReadBranch(*_parser, "Root.SheetFormat", formats, count, ReadSheetFormat);
}

long ZOLAnnStandardServices::ReadSheetStyle(const ZOLAnnStandardXMLNode* node, ZOLDrwStdSheetStyle& style) {
  style = ZOLDrwStdSheetStyle();
  style.name = node->Name();
  int mask = 4;
  if (const ZOLAnnStandardXMLValue* v = FirstValueOf(node, "GlobalScale")) {
    // Not adapted to the locale, unlike the sheet sizes.
    if (std::sscanf(v->Value().ConvertToChar(), "%le", &style.scale) == 1)
      mask |= 2;
    else
      style.scale = 1.0;
  }
  if (const ZOLAnnStandardXMLValue* v = FirstValueOf(node, "Format")) {
    ZOLRef<ZOLAnnStandardXMLNode> formats =
        ZOLRef<ZOLAnnStandardXMLNode>::Adopt(_parser->GetNodeWithPath("Root.SheetFormat"));
    for (const ZOLAnnStandardXMLNode* f : formats ? formats->SubNodes() : std::vector<ZOLAnnStandardXMLNode*>()) {
      if (f->Values().empty() || !(f->Values()[0]->Value() == v->Value())) continue;
      if (SUCCEEDED(ReadSheetFormat(f, style.format))) {
        style.hasFormat = true;
        mask |= 128;
      }
      break;
    }
  }
  // Each two-word choice sets its field and its mask bit when the text is one of the two words.
  auto choose = [&](std::string_view sub, const char* first, const char* second, auto set, int bit) {
    const ZOLAnnStandardXMLValue* v = FirstValueOf(node, sub);
    if (!v) return;
    if (v->Value() == first) set(0);
    else if (v->Value() == second) set(1);
    else return;
    mask |= bit;
  };
  choose("Orientation", "Portrait", "Landscape", [&](int i) { style.orientation = i; style.hasOrientation = true; }, 32);
  choose("DisplayFormat", "No", "Yes", [&](int i) { style.displayFormat = i; style.hasDisplayFormat = true; }, 64);
  choose("ProjectionMethod", "First angle", "Third angle", [&](int i) { style.projectionMethod = i; }, 8);
  choose("GenViewsPosMode", "FixedCG", "FixedAxis", [&](int i) { style.genViewsPosMode = i; style.hasGenViewsPosMode = true; }, 16);
  // Old standards have sheet styles of a scale and a projection (and perhaps a position mode) only.
  if (mask == 14 || mask == 30) return 1;
  if (mask == 254) return 0;
  ZOLAssertMessage("Bad xml structure");
  return E_FAIL;
}

long ZOLAnnStandardServices::GetAvailableSheetStyles(ZOLDrwStdSheetStyle** styles, int& count) {
  if (!_parser || !styles || DocumentVersion() < ZOLDftStdPersistence::GetVersionFromRelease(11)) return E_FAIL;
  return ReadBranch(*_parser, "Root.Styles.Sheet", styles, count,
                    [this](const ZOLAnnStandardXMLNode* node, ZOLDrwStdSheetStyle& style) { return ReadSheetStyle(node, style); });
}

long ZOLAnnStandardServices::GetDefaultSheetStyle(ZOLDrwStdSheetStyle& style) {
  if (!_parser || DocumentVersion() < ZOLDftStdPersistence::GetVersionFromRelease(11)) return E_FAIL;
  ZOLRef<ZOLAnnStandardXMLNode> branch = ZOLRef<ZOLAnnStandardXMLNode>::Adopt(_parser->GetNodeWithPath("Root.Styles.Sheet"));
  if (!branch) return E_FAIL;
  ZOLRef<ZOLAnnStandardXMLNode> node = ZOLRef<ZOLAnnStandardXMLNode>::Adopt(branch->GetDefaultNode());
  if (!node) return E_FAIL;
  return ReadSheetStyle(node.get(), style);
}

long ZOLAnnStandardServices::GetSheetScale(double& scale) {
  if (!_parser) return E_FAIL;
  ZOLRef<ZOLAnnStandardXMLNode> branch = ZOLRef<ZOLAnnStandardXMLNode>::Adopt(_parser->GetNodeWithPath("Root.Styles.Sheet"));
  if (!branch) return E_FAIL;
  ZOLRef<ZOLAnnStandardXMLNode> node = ZOLRef<ZOLAnnStandardXMLNode>::Adopt(branch->GetDefaultNode());
  const ZOLAnnStandardXMLValue* value = FirstValueOf(node.get(), "GlobalScale");
  if (!value) return E_FAIL;
  // S_OK once the value exists, even when its text is no number: the scale then stays as it was.
  double read = 0.0;
  if (std::sscanf(value->Value().ConvertToChar(), "%le", &read) == 1) scale = read;
  return S_OK;
}

long ZOLAnnStandardServices::GetStandardParentName(ZOLUnicodeString& name) {
  if (!_parser) return E_FAIL;
  name = _parser->GetValueWithPath("Root.Dimension.ParentStandard");
  return S_OK;
}

long ZOLAnnStandardServices::GetVersion(int& version) {
  if (!_parser) return E_FAIL;
  version = DocumentVersion();
  return version < 1 ? E_FAIL : S_OK;
}

int ZOLAnnStandardServices::IsSwitchable(int version) {
  if (!_parser) return 0;
  return DocumentVersion() >= version ? 1 : 0;
}

long ZOLAnnStandardServices::CheckXMLStructure() {
  if (!_parser) {
    ZOLAssertMessage("No parser available");
    return E_FAIL;
  }
  if (_parser->Check() == 0) {
    ZOLAssertMessage("Bad enumerate structure in xml file");
    return 1;
  }
  const int version = DocumentVersion();
  if (version < 1) {
    ZOLAssertMessage("The version of the file could not be determined");
    return 1;
  }
  if (version < ZOLDftStdPersistence::GetVersionFromRelease(14)) return 0;
  ZOLDrwStdSheetStyle* styles = nullptr;
  int count = 0;
  if (FAILED(GetAvailableSheetStyles(&styles, count))) {
    ZOLAssertMessage("The R14 sheet styles are corrupted");
    return 1;
  }
  delete[] styles;
  if (count >= 1) return 0;
  ZOLAssertMessage("No sheet styles defined in the R14 standard file");
  return 1;
}
