// The report page: a header, drawings of what the standard defines, its styles and the outline of
// everything it files. Everything is read from the standard object, as a drafting module reads it.
// Drawings are SVG in millimetres through a viewBox, so that they keep the proportions of the
// standard whatever the zoom.
#include "QelstdReport.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "QelstdHtml.h"
#include "QelstdIcon.h"
#include "QelstdStyles.h"
#include "ZOLAnnStdEngineeringSymbolsServices.h"
#include "ZOLDftStandardServices.h"
#include "ZOLDftStandardValueType.h"
#include "ZOLIDftStandard.h"
#include "ZOLListValZOLUnicodeString.h"

namespace qelstd {
namespace {

constexpr double kLineMm = 60;         // length of a drawn line type or thickness
constexpr double kLinePxPerMm = 4;
constexpr double kTileMm = 30;         // side of a hatching, dotting or colouring tile
constexpr double kTilePx = 120;
constexpr double kSheetPxPerMm = 0.25; // the one scale of every sheet format
constexpr int kIconZoom = 4;
constexpr int kMostLinesPerTile = 400; // a pitch near 0 would draw without end
constexpr int kMostSegments = 256;

// Reads of one standard object by path, with what a page falls back on where a value is missing.
class Reader {
public:
  explicit Reader(ZOLIDrwStandard* s) : _s(s) {}

  // The entries of a list of records, 0 when the path holds none.
  int Count(const std::string& list) const {
    ZOLDftStandardValueType type = ZOLDftStandardValueTypeUnknown;
    int count = 0;
    return _s->GetValueType(list.c_str(), &type, &count) == S_OK && type == ZOLDftStandardValueTypeTypedEntry ? count : 0;
  }
  // A real or an integer at a 1-based index.
  double Number(const std::string& path, int index, double fallback) const {
    double d = 0;
    if (_s->GetValue(path.c_str(), index, d) == S_OK) return std::isfinite(d) ? d : fallback;
    int i = 0;
    return _s->GetValue(path.c_str(), index, i) == S_OK ? i : fallback;
  }
  std::string Text(const std::string& path, int index) const {
    ZOLUnicodeString t;
    return _s->GetValue(path.c_str(), index, t) == S_OK ? t.str() : std::string();
  }
  // The reals of an array, or its single value.
  std::vector<double> Reals(const std::string& path) const {
    std::vector<double> v(kMostSegments);
    int count = 0;
    if (SUCCEEDED(_s->GetValue(path.c_str(), v.data(), kMostSegments, &count))) {
      v.resize(static_cast<size_t>(std::clamp(count, 0, kMostSegments)));
      return v;
    }
    double d = 0;
    return _s->GetValue(path.c_str(), 1, d) == S_OK ? std::vector<double>{d} : std::vector<double>{};
  }

private:
  ZOLIDrwStandard* _s;
};

// What the standard files, one entry per key ("path.index" for single values, the bare path for
// arrays), sorted by key.
struct Filed {
  ZOLListValZOLUnicodeString keys, kinds, values;
};

// A packed colour (red, green, blue, alpha bytes from the highest) as CSS.
std::string Colour(double packed) {
  const unsigned long long c = packed < 0 || packed > 4294967295.0 ? 255ULL : static_cast<unsigned long long>(packed);
  char buf[64];
  std::snprintf(buf, sizeof buf, "rgba(%llu,%llu,%llu,%.3g)", c >> 24 & 255, c >> 16 & 255, c >> 8 & 255,
                static_cast<double>(c & 255) / 255);
  return buf;
}

void Attr(std::string& out, const char* name, double v) {
  out += ' ';
  out += name;
  out += "=\"";
  AppendNumber(out, v);
  out += '"';
}

// <svg> of one drawing, sized in pixels over a viewBox in millimetres.
void OpenSvg(std::string& out, const char* kind, std::string_view name, double wMm, double hMm, double pxPerMm) {
  out += "<svg xmlns=\"http://www.w3.org/2000/svg\" data-drawing=\"";
  out += kind;
  out += "\" data-name=\"";
  AppendEscaped(out, name);
  out += '"';
  Attr(out, "width", wMm * pxPerMm);
  Attr(out, "height", hMm * pxPerMm);
  out += " viewBox=\"0 0 ";
  AppendNumber(out, wMm);
  out += ' ';
  AppendNumber(out, hMm);
  out += "\">";
}

void Caption(std::string& out, std::string_view title, std::string_view detail) {
  out += "<figcaption><b>";
  AppendEscaped(out, title);
  out += "</b>";
  if (!detail.empty()) {
    out += "<br><small>";
    AppendEscaped(out, detail);
    out += "</small>";
  }
  out += "</figcaption></figure>";
}

// Dash and gap lengths of a line type in millimetres, dash first, for stroke-dasharray; empty for
// a continuous line. Segment holds positive dashes and negative gaps; without it a type 1 line
// has a 16-bit mask, each bit a quarter millimetre times Ratio. note tells what was drawn from.
std::vector<double> Dashes(const Reader& r, const std::string& lineType, std::string& note) {
  std::vector<double> signedLengths = r.Reals(lineType + ".Segment");
  if (!signedLengths.empty()) {
    note = "segments";
  } else if (r.Number(lineType + ".Type", 1, 1) == 1) {
    const unsigned mask = static_cast<unsigned>(std::clamp(r.Number(lineType + ".Pattern", 1, 65535), 0.0, 65535.0));
    const double bit = std::clamp(r.Number(lineType + ".Ratio", 1, 1), 0.0, 64.0) * 0.25;
    for (int b = 15; b >= 0; --b) signedLengths.push_back(mask >> b & 1 ? bit : -bit);
    note = "16-bit mask";
  } else {
    note = "glyph of the line-type font";
    return {};
  }
  // Merged by sign, a zero dash drawn as a dot, leading gaps moved to the end: the same pattern.
  std::vector<double> runs;
  for (double len : signedLengths) {
    const bool dash = len >= 0;
    const double abs = dash ? std::max(std::fabs(len), 0.2) : std::fabs(len);
    if (!runs.empty() && (runs.back() >= 0) == dash) runs.back() += dash ? abs : -abs;
    else runs.push_back(dash ? abs : -abs);
  }
  if (std::none_of(runs.begin(), runs.end(), [](double x) { return x < 0; })) return {};
  if (std::none_of(runs.begin(), runs.end(), [](double x) { return x > 0; })) return {0, 1};
  while (runs.front() < 0) std::rotate(runs.begin(), runs.begin() + 1, runs.end());
  if (runs.size() > 1 && runs.back() > 0) runs.front() += runs.back(), runs.pop_back();
  std::vector<double> dashes;
  for (double x : runs) dashes.push_back(std::fabs(x));
  if (dashes.size() % 2) dashes.push_back(0);
  return dashes;
}

void AppendDashArray(std::string& out, const std::vector<double>& dashes) {
  if (dashes.empty()) return;
  out += " stroke-dasharray=\"";
  for (size_t i = 0; i < dashes.size(); ++i) {
    if (i) out += ' ';
    AppendNumber(out, dashes[i]);
  }
  out += '"';
}

// The names below "LineTypes" that are line types, by their number.
std::vector<std::string> LineTypeNames(const Filed& f) {
  constexpr std::string_view prefix = "LineTypes.LineType";
  std::vector<std::pair<long, std::string>> found;
  for (int k = 1; k <= f.keys.Size(); ++k) {
    const std::string& key = f.keys[k].str();
    if (key.compare(0, prefix.size(), prefix) != 0) continue;
    const size_t dot = key.find('.', prefix.size());
    const std::string name = key.substr(sizeof "LineTypes", dot - (sizeof "LineTypes"));
    if (found.empty() || found.back().second != name) found.emplace_back(std::atol(name.c_str() + 8), name);
  }
  std::stable_sort(found.begin(), found.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
  found.erase(std::unique(found.begin(), found.end()), found.end());
  std::vector<std::string> names;
  for (auto& [n, name] : found) names.push_back(std::move(name));
  return names;
}

void LineTypes(std::string& out, const Reader& r, const Filed& f) {
  out += "<section id=\"linetypes\"><h2>Line types</h2><div class=\"grid\">";
  char buf[96];
  for (const std::string& name : LineTypeNames(f)) {
    const std::string path = "LineTypes." + name;
    std::string note;
    const std::vector<double> dashes = Dashes(r, path, note);
    out += "<figure>";
    OpenSvg(out, "linetype", name, kLineMm, 4, kLinePxPerMm);
    out += "<line x1=\"0\" y1=\"2\"";
    Attr(out, "x2", kLineMm);
    // A glyph of the line-type font is drawn by the application; grey stands in for it.
    out += note[0] == 'g' ? " y2=\"2\" stroke=\"#999\"" : " y2=\"2\" stroke=\"#000\"";
    out += " stroke-width=\"0.5\"";
    AppendDashArray(out, dashes);
    out += "/></svg>";
    std::snprintf(buf, sizeof buf, "type %g, pattern %g, ratio %g, from its ", r.Number(path + ".Type", 1, 0),
                  r.Number(path + ".Pattern", 1, 0), r.Number(path + ".Ratio", 1, 0));
    Caption(out, name, buf + note);
  }
  out += "</div></section>";
}

double ThicknessMm(const Reader& r, int row) {
  return std::clamp(r.Number("LineThickness.mm", row, 0.13), 0.05, 5.0);
}

void HatchLines(std::string& out, const Reader& r, int entry, int family) {
  const std::string n = std::to_string(family);
  auto field = [&](const char* name, double fallback) { return r.Number("Patterns.hatching." + (name + n), entry, fallback); };
  const double angle = field("angle", 60) * M_PI / 180, offset = field("offset", 2), pitch = field("pitch", 10);
  if (!(pitch > kTileMm * 2 / kMostLinesPerTile)) return;
  const double ux = std::cos(angle), uy = std::sin(angle), nx = -uy, ny = ux;
  double lo = 0, hi = 0;
  for (double cx : {0.0, kTileMm})
    for (double cy : {0.0, kTileMm}) lo = std::min(lo, cx * nx + cy * ny), hi = std::max(hi, cx * nx + cy * ny);
  std::string note;
  out += "<g stroke=\"" + Colour(field("color", 255)) + "\"";
  Attr(out, "stroke-width", ThicknessMm(r, static_cast<int>(field("thickness", 1))));
  AppendDashArray(out, Dashes(r, "LineTypes.LineType" + std::to_string(static_cast<int>(field("linetype", 1))), note));
  out += '>';
  const double reach = kTileMm * 3;
  for (double k = std::ceil((lo - offset) / pitch); k <= std::floor((hi - offset) / pitch); ++k) {
    const double d = offset + k * pitch, cx = nx * d, cy = ny * d;
    out += "<line";
    Attr(out, "x1", cx - ux * reach);
    Attr(out, "y1", cy - uy * reach);
    Attr(out, "x2", cx + ux * reach);
    Attr(out, "y2", cy + uy * reach);
    out += "/>";
  }
  out += "</g>";
}

void OpenTile(std::string& out, const char* kind, std::string_view name) {
  out += "<figure>";
  OpenSvg(out, kind, name, kTileMm, kTileMm, kTilePx / kTileMm);
  // The y axis up, as angles of a drawing read.
  out += "<g transform=\"matrix(1 0 0 -1 0 ";
  AppendNumber(out, kTileMm);
  out += ")\">";
}

void CloseTile(std::string& out) {
  out += "</g><rect width=\"";
  AppendNumber(out, kTileMm);
  out += "\" height=\"";
  AppendNumber(out, kTileMm);
  out += "\" fill=\"none\" stroke=\"#bbb\" stroke-width=\"0.3\"/></svg>";
}

void Patterns(std::string& out, const Reader& r) {
  char buf[128];
  out += "<section id=\"hatchings\"><h2>Hatchings</h2><div class=\"grid\">";
  for (int i = 1, n = r.Count("Patterns.hatching"); i <= n; ++i) {
    const std::string name = r.Text("Patterns.hatching.Name", i);
    OpenTile(out, "hatching", name);
    const int families = static_cast<int>(std::clamp(r.Number("Patterns.hatching.nb hatch", i, 1), 0.0, 10.0));
    for (int f = 1; f <= families; ++f) HatchLines(out, r, i, f);
    CloseTile(out);
    std::snprintf(buf, sizeof buf, "%d line famil%s; first at %g\xC2\xB0, pitch %g mm", families, families == 1 ? "y" : "ies",
                  r.Number("Patterns.hatching.angle1", i, 60), r.Number("Patterns.hatching.pitch1", i, 10));
    Caption(out, name, buf);
  }
  out += "</div></section><section id=\"dottings\"><h2>Dottings</h2><div class=\"grid\">";
  for (int i = 1, n = r.Count("Patterns.dotting"); i <= n; ++i) {
    const std::string name = r.Text("Patterns.dotting.Name", i);
    OpenTile(out, "dotting", name);
    const double pitch = std::max(r.Number("Patterns.dotting.pitch", i, 10), 0.5);
    const bool zigzag = r.Number("Patterns.dotting.zig-zag", i, 0) != 0;
    out += "<g fill=\"" + Colour(r.Number("Patterns.dotting.color", i, 255)) + "\">";
    for (int row = 0; row * pitch <= kTileMm; ++row)
      for (double x = zigzag && row % 2 ? pitch / 2 : 0; x <= kTileMm; x += pitch) {
        out += "<circle";
        Attr(out, "cx", x);
        Attr(out, "cy", row * pitch);
        out += " r=\"0.4\"/>";
      }
    out += "</g>";
    CloseTile(out);
    std::snprintf(buf, sizeof buf, "pitch %g mm%s", pitch, zigzag ? ", zig-zag" : "");
    Caption(out, name, buf);
  }
  out += "</div></section><section id=\"colorings\"><h2>Colourings</h2><div class=\"grid\">";
  for (int i = 1, n = r.Count("Patterns.coloring"); i <= n; ++i) {
    const std::string name = r.Text("Patterns.coloring.Name", i);
    const std::string colour = Colour(r.Number("Patterns.coloring.color", i, 4294967295.0));
    OpenTile(out, "coloring", name);
    out += "<rect width=\"30\" height=\"30\" fill=\"" + colour + "\"/>";
    CloseTile(out);
    Caption(out, name, colour);
  }
  out += "</div></section>";
}

void Thicknesses(std::string& out, const Reader& r) {
  out += "<section id=\"thicknesses\"><h2>Line thicknesses</h2><div class=\"grid\">";
  char buf[96];
  for (int i = 1, n = r.Count("LineThickness"); i <= n; ++i) {
    const double mm = r.Number("LineThickness.mm", i, 0.13);
    const double drawn = std::clamp(mm, 0.0, 5.0);
    const bool available = r.Number("LineThickness.Availability", i, 0) != 0;
    const std::string name = std::to_string(i);
    out += available ? "<figure>" : "<figure class=\"off\">";
    OpenSvg(out, "thickness", name, kLineMm, drawn + 2, kLinePxPerMm);
    out += "<line x1=\"0\" x2=\"60\"";
    Attr(out, "y1", drawn / 2 + 1);
    Attr(out, "y2", drawn / 2 + 1);
    Attr(out, "stroke-width", drawn);
    out += " stroke=\"#000\"/></svg>";
    std::snprintf(buf, sizeof buf, "%g mm, %g px%s", mm, r.Number("LineThickness.Pixel", i, 1),
                  available ? "" : ", not available");
    Caption(out, name, buf);
  }
  out += "</div></section>";
}

void SheetFormats(std::string& out, ZOLIDrwStandard* standard) {
  out += "<section id=\"sheets\"><h2>Sheet formats</h2><p>All at one scale: a pixel for ";
  AppendNumber(out, 1 / kSheetPxPerMm);
  out += " mm.</p><div class=\"grid\">";
  ZOLIDftStandard_var dft(standard);
  ZOLDrwStdSheetFormat* formats = nullptr;
  int count = 0;
  if (!dft || ZOLDftStandardServices::GetSheetFormats(dft, &formats, count) != S_OK) count = 0;
  char buf[96];
  for (int i = 0; i < count; ++i) {
    const ZOLDrwStdSheetFormat& f = formats[i];
    const double w = std::clamp(f.width, 1.0, 20000.0), h = std::clamp(f.height, 1.0, 20000.0);
    out += "<figure>";
    OpenSvg(out, "sheetformat", f.name.str(), w, h, kSheetPxPerMm);
    out += "<rect";
    Attr(out, "width", w);
    Attr(out, "height", h);
    out += " fill=\"#fff\" stroke=\"#333\" stroke-width=\"8\"/></svg>";
    ZOLUnicodeString orientation;
    ZOLDftStandardServices::GetNameFromEnum(f.orientation, orientation);
    std::snprintf(buf, sizeof buf, "%g \xC3\x97 %g mm, ", f.width, f.height);
    Caption(out, f.name.str(), buf + orientation.str());
  }
  delete[] formats;
  if (count == 0) out += "<p>No sheet format can be read from this standard.</p>";
  out += "</div></section>";
}

// One bitmap as a path of ink runs, row by row.
void IconPath(std::string& out, const std::vector<unsigned char>& pixels, int size, int column) {
  out += "<path d=\"";
  for (int y = 0; y < size; ++y)
    for (int x = 0; x < size;) {
      if (!pixels[static_cast<size_t>(y * size + x)]) {
        ++x;
        continue;
      }
      int end = x;
      while (end < size && pixels[static_cast<size_t>(y * size + end)]) ++end;
      char run[64];
      const int n = std::snprintf(run, sizeof run, "M%d %dh%dv1h-%dz", column * (size + 1) + x, y, end - x, end - x);
      out.append(run, static_cast<size_t>(std::clamp(n, 0, static_cast<int>(sizeof run) - 1)));
      x = end;
    }
  out += "\"/>";
}

void Symbols(std::string& out, const Reader& r, bool ansiFamily) {
  out += "<section id=\"symbols\"><h2>Engineering symbols</h2><div class=\"grid\">";
  for (int i = 1, n = r.Count("EngineeringSymbols"); i <= n; ++i) {
    const std::string name = r.Text("EngineeringSymbols.Name", i), font = r.Text("EngineeringSymbols.Font", i);
    auto icons = DecodeIcons(r.Text("EngineeringSymbols.Icon22x22", i), 22);
    int size = 22;
    std::string from = "its own icon";
    if (icons.empty()) {
      // The symbol tables of the library have icons for the symbols a standard leaves without.
      ZOLUnicodeString f, code, i16, i22;
      using Services = ZOLAnnStdEngineeringSymbolsServices;
      const int context = font == "KVISO1.otf" ? 1 : 0;
      if (SUCCEEDED(Services::GetEngSymbolDefinitionAndImage(ZOLUnicodeString(name), static_cast<Services::SymbolContext>(context),
                                                             static_cast<Services::ParentStandard>(ansiFamily ? 2 : 0),
                                                             f, code, i16, i22, 0)))
        icons = DecodeIcons(i22.str(), 22), from = "the library's icon";
    }
    if (icons.empty())
      icons = DecodeIcons(r.Text("EngineeringSymbols.Icon16x16", i), 16), size = 16, from = "its own 16-pixel icon";
    const int columns = std::max<int>(1, static_cast<int>(icons.size()));
    out += "<figure>";
    OpenSvg(out, "symbol", name, columns * (size + 1) - 1, size, kIconZoom * 22.0 / size);
    out += "<rect width=\"100%\" height=\"100%\" fill=\"#f4f4f4\"/>";
    if (icons.empty()) {
      from = "no icon";
      out += "<path d=\"M0 0L22 22M22 0L0 22\" stroke=\"#c00\" stroke-width=\"0.5\"/>";
    }
    for (size_t k = 0; k < icons.size(); ++k) IconPath(out, icons[k], size, static_cast<int>(k));
    out += "</svg>";
    char code[32];
    std::snprintf(code, sizeof code, ", code %g, ", r.Number("EngineeringSymbols.Charcode", i, 0));
    Caption(out, name, font + code + from);
  }
  out += "</div></section>";
}

// A single value is filed under its path and its 1-based index; the index shows where it is not 1.
bool IsSingle(std::string_view kind) { return kind == "integer" || kind == "real" || kind == "string" || kind == "enum"; }

void AppendIndexed(std::string& out, std::string_view path, std::string_view kind) {
  const size_t dot = path.rfind('.');
  if (!IsSingle(kind) || dot == std::string_view::npos) return AppendEscaped(out, path);
  AppendEscaped(out, path.substr(0, dot));
  if (path.substr(dot + 1) == "1") return;
  out += " [";
  AppendEscaped(out, path.substr(dot + 1));
  out += ']';
}

void Styles(std::string& out, ZOLIDrwStandard* standard, const Filed& f) {
  std::vector<std::pair<std::string, std::string>> styles;
  if (ZOLIDftStyleManager_var manager(standard); manager) ListStyles(manager, "", styles);
  // The filed values of each style, by "type.name", in key order.
  std::vector<std::string> prefixes;
  prefixes.reserve(styles.size());
  std::unordered_map<std::string_view, std::vector<int>> byStyle;
  for (const auto& [type, name] : styles) byStyle[prefixes.emplace_back(type + "." + name)];
  for (int k = 1; k <= f.keys.Size(); ++k) {
    const std::string_view key = f.keys[k].str();
    const size_t first = key.find('.'), second = first == std::string_view::npos ? first : key.find('.', first + 1);
    if (second == std::string_view::npos) continue;
    if (auto it = byStyle.find(key.substr(0, second)); it != byStyle.end()) it->second.push_back(k);
  }
  out += "<section id=\"styles\"><h2>Styles</h2>";
  for (size_t i = 0; i < styles.size(); ++i) {
    const std::string& type = styles[i].first;
    if (i == 0 || styles[i - 1].first != type) {
      size_t n = 0;
      while (i + n < styles.size() && styles[i + n].first == type) ++n;
      out += i == 0 ? "<details class=\"styletype\"><summary>" : "</details><details class=\"styletype\"><summary>";
      AppendEscaped(out, type);
      out += " <small>(" + std::to_string(n) + ")</small></summary>";
    }
    const std::string style = type + "." + styles[i].second;
    out += "<details><summary>";
    AppendEscaped(out, styles[i].second);
    out += "</summary><table><tr><th>Parameter</th><th>Type</th><th>Value</th></tr>";
    if (auto it = byStyle.find(style); it != byStyle.end())
      for (int k : it->second) {
        out += "<tr><td>";
        AppendIndexed(out, std::string_view(f.keys[k].str()).substr(style.size() + 1), f.kinds[k].str());
        out += "</td><td>";
        AppendEscaped(out, f.kinds[k].str());
        out += "</td><td>";
        AppendEscaped(out, f.values[k].str());
        out += "</td></tr>";
      }
    out += "</table></details>";
  }
  if (!styles.empty()) out += "</details>";
  out += "</section>";
}

// Every filed value as nested lists by the steps of its path, sub-nodes folded. A single value's
// key ends with its index, shown beside its name.
void Outline(std::string& out, const Filed& f) {
  out += "<section id=\"tree\"><h2>Tree</h2><p>Every value the standard files, by path. "
         "<input id=\"q\" type=\"search\" placeholder=\"Find in the tree\"> "
         "<button id=\"openall\">Unfold all</button> <button id=\"closeall\">Fold all</button></p><ul class=\"tree\">";
  std::vector<std::string_view> open;
  std::vector<std::string_view> steps;
  for (int k = 1; k <= f.keys.Size(); ++k) {
    const std::string_view key = f.keys[k].str(), kind = f.kinds[k].str();
    steps.clear();
    for (size_t at = 0;;) {
      const size_t dot = key.find('.', at);
      steps.push_back(key.substr(at, dot == std::string_view::npos ? std::string_view::npos : dot - at));
      if (dot == std::string_view::npos) break;
      at = dot + 1;
    }
    std::string_view index;
    if (IsSingle(kind) && steps.size() > 1) index = steps.back(), steps.pop_back();
    const size_t groups = steps.size() - 1;
    size_t same = 0;
    while (same < open.size() && same < groups && open[same] == steps[same]) ++same;
    for (; open.size() > same; open.pop_back()) out += "</ul></details></li>";
    for (; open.size() < groups; open.push_back(steps[open.size()])) {
      out += "<li><details><summary><b>";
      AppendEscaped(out, steps[open.size()]);
      out += "</b></summary><ul>";
    }
    out += "<li><b>";
    AppendEscaped(out, steps.back());
    out += "</b>";
    if (!index.empty() && index != "1") {
      out += " [";
      AppendEscaped(out, index);
      out += ']';
    }
    out += " <span class=\"v\"><code>";
    AppendEscaped(out, f.values[k].str());
    out += "</code> <i>";
    AppendEscaped(out, kind);
    out += "</i></span></li>";
  }
  for (; !open.empty(); open.pop_back()) out += "</ul></details></li>";
  out += "</ul></section>";
}

constexpr const char* kStyle =
    "body{font:14px/1.4 system-ui,sans-serif;margin:0 2em 2em;color:#222}"
    "header{position:sticky;top:0;background:#fff;border-bottom:1px solid #ccc;padding:.5em 0;z-index:1}"
    "h1{margin:.2em 0}h2{border-bottom:1px solid #ddd;margin-top:1.5em}"
    "header table td{padding:0 1em 0 0}nav a{margin-right:1em}"
    ".grid{display:flex;flex-wrap:wrap;gap:12px;align-items:flex-end}"
    "figure{margin:0;padding:6px;border:1px solid #e4e4e4;border-radius:4px;text-align:center;max-width:320px}"
    "figure.off{opacity:.45}figure svg{display:block;margin:0 auto 4px}"
    "figcaption{font-size:12px;overflow-wrap:anywhere}"
    "svg[data-drawing=symbol] path{fill:#000;shape-rendering:crispEdges}"
    "ul.tree,ul.tree ul{list-style:none;padding-left:1.2em;margin:0}"
    "summary{cursor:pointer}.v code{background:#f2f2f2;padding:0 3px;white-space:pre-wrap}"
    ".v i{color:#777;font-size:11px}.hit{background:#ffef9e}.styletype details{margin-left:1.2em}"
    "table{border-collapse:collapse;margin:.3em 0 .6em 1.2em}td,th{border:1px solid #ddd;padding:1px 6px;text-align:left}";

// Only search and folding need it; the page reads whole without.
constexpr const char* kScript =
    "const q=document.getElementById('q');"
    "q.addEventListener('change',()=>{const w=q.value.toLowerCase();"
    "document.querySelectorAll('.hit').forEach(e=>e.classList.remove('hit'));if(!w)return;let first=null;"
    "document.querySelectorAll('ul.tree li').forEach(li=>{const own=li.firstElementChild&&"
    "li.firstElementChild.tagName==='DETAILS'?li.firstElementChild.firstElementChild:li;"
    "const t=own===li?li.textContent:own.textContent;if(!t.toLowerCase().includes(w))return;"
    "own.classList.add('hit');first=first||own;"
    "for(let d=li.parentElement.closest('details');d;d=d.parentElement.closest('details'))d.open=true;});"
    "if(first)first.scrollIntoView({block:'center'});});"
    "for(const [id,open] of [['openall',true],['closeall',false]])document.getElementById(id).onclick="
    "()=>document.querySelectorAll('ul.tree details').forEach(d=>d.open=open);";

}  // namespace

std::string RenderReport(const std::string& file, ZOLIDrwStandard* standard) {
  ZOLUnicodeString name, parent;
  standard->GetName(name);
  standard->GetParentStandard(parent);
  const int level = standard->GetStdVersion();
  const Reader r(standard);
  Filed filed;
  ZOLDftStandardServices::ListFiledValues(standard, ZOLUnicodeString(""), filed.keys, filed.kinds, filed.values);

  std::string out;
  out.reserve(2 << 20);
  out += "<!DOCTYPE html><html lang=\"en\"><head><meta charset=\"utf-8\"><title>";
  AppendEscaped(out, name.str());
  out += " \xE2\x80\x94 standard report</title><style>";
  out += kStyle;
  out += "</style></head><body><header><h1>";
  AppendEscaped(out, name.str());
  out += "</h1><table><tr><td>Parent</td><td id=\"parent\">";
  AppendEscaped(out, parent.IsEmpty() ? std::string_view("(none)") : std::string_view(parent.str()));
  out += "</td></tr><tr><td>Level</td><td id=\"level\">" + std::to_string(level) + "</td></tr><tr><td>File</td><td id=\"file\">";
  AppendEscaped(out, file);
  out += "</td></tr></table><nav><a href=\"#linetypes\">Line types</a><a href=\"#hatchings\">Hatchings</a>"
         "<a href=\"#dottings\">Dottings</a><a href=\"#colorings\">Colourings</a><a href=\"#thicknesses\">Thicknesses</a>"
         "<a href=\"#sheets\">Sheet formats</a><a href=\"#symbols\">Symbols</a><a href=\"#styles\">Styles</a>"
         "<a href=\"#tree\">Tree</a></nav></header>";
  LineTypes(out, r, filed);
  Patterns(out, r);
  Thicknesses(out, r);
  SheetFormats(out, standard);
  Symbols(out, r, parent == "ANSI");
  Styles(out, standard, filed);
  Outline(out, filed);
  out += "<script>";
  out += kScript;
  out += "</script></body></html>\n";
  return out;
}

}  // namespace qelstd
