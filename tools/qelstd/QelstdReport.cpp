// The report page: a header, drawings of what the standard defines, its styles and the outline of
// its whole tree. Drawings are SVG in millimetres through a viewBox, so that they keep the
// proportions of the standard whatever the zoom.
#include "QelstdReport.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string_view>
#include <utility>
#include <vector>

#include "QelstdHtml.h"
#include "QelstdIcon.h"
#include "QelstdTreeText.h"
#include "ZOLAnnStandardXMLNode.h"
#include "ZOLAnnStdEngineeringSymbolsServices.h"
#include "ZOLDftStandardServices.h"
#include "ZOLIDftStandard.h"
#include "ZOLListValZOLUnicodeString.h"

namespace qelstd {
namespace {

using Node = ZOLAnnStandardXMLNode;
using Value = ZOLAnnStandardXMLValue;

constexpr double kLineMm = 60;         // length of a drawn line type or thickness
constexpr double kLinePxPerMm = 4;
constexpr double kTileMm = 30;         // side of a hatching, dotting or colouring tile
constexpr double kTilePx = 120;
constexpr double kSheetPxPerMm = 0.25; // the one scale of every sheet format
constexpr int kIconZoom = 4;
constexpr int kMostLinesPerTile = 400; // a pitch near 0 would draw without end

double Number(const Value* v, double fallback) {
  if (!v) return fallback;
  const char* text = v->Value().ConvertToChar();
  char* end = nullptr;
  const double d = std::strtod(text, &end);
  return end != text && std::isfinite(d) ? d : fallback;
}

double Field(const Node* n, std::string_view name, double fallback) {
  return Number(n ? n->FindValueByName(name) : nullptr, fallback);
}

std::string_view Text(const Node* n, std::string_view name) {
  const Value* v = n ? n->FindValueByName(name) : nullptr;
  return v ? std::string_view(v->Value()) : std::string_view();
}

// The value of a plain parameter node: its first value.
double Param(const Node* n, std::string_view name, double fallback) {
  const Node* p = n ? n->FindNodeByName(name) : nullptr;
  return p && !p->Values().empty() ? Number(p->Values()[0], fallback) : fallback;
}

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

// What the page needs of the tree beside the outline: the line types and thicknesses that
// patterns refer to by their 1-based row.
struct Tables {
  const Node* lineTypes = nullptr;
  std::vector<const Node*> thicknesses;
};

// Dash and gap lengths of a line type in millimetres, dash first, for stroke-dasharray; empty for
// a continuous line. Segment holds positive dashes and negative gaps; without it a type 1 line
// has a 16-bit mask, each bit a quarter millimetre times Ratio. note tells what was drawn from.
std::vector<double> Dashes(const Node* lineType, std::string& note) {
  std::vector<double> signedLengths;
  const Node* segment = lineType ? lineType->FindNodeByName("Segment") : nullptr;
  if (segment && !segment->Values().empty()) {
    for (const Value* v : segment->Values()) signedLengths.push_back(Number(v, 0));
    note = "segments";
  } else if (Param(lineType, "Type", 1) == 1) {
    const unsigned mask = static_cast<unsigned>(std::clamp(Param(lineType, "Pattern", 65535), 0.0, 65535.0));
    const double bit = std::clamp(Param(lineType, "Ratio", 1), 0.0, 64.0) * 0.25;
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
  if (std::none_of(runs.begin(), runs.end(), [](double r) { return r < 0; })) return {};
  if (std::none_of(runs.begin(), runs.end(), [](double r) { return r > 0; })) return {0, 1};
  while (runs.front() < 0) std::rotate(runs.begin(), runs.begin() + 1, runs.end());
  if (runs.size() > 1 && runs.back() > 0) runs.front() += runs.back(), runs.pop_back();
  std::vector<double> dashes;
  for (double r : runs) dashes.push_back(std::fabs(r));
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

const Node* LineTypeAt(const Tables& t, int row) {
  if (!t.lineTypes) return nullptr;
  return t.lineTypes->FindNodeByName("LineType" + std::to_string(row));
}

double ThicknessMm(const Tables& t, int row) {
  if (row < 1 || row > static_cast<int>(t.thicknesses.size())) return 0.13;
  return std::clamp(Field(t.thicknesses[static_cast<size_t>(row - 1)], "mm", 0.13), 0.05, 5.0);
}

void LineTypes(std::string& out, const Tables& t) {
  out += "<section id=\"linetypes\"><h2>Line types</h2><div class=\"grid\">";
  for (const Node* lt : t.lineTypes ? t.lineTypes->SubNodes() : std::vector<Node*>()) {
    // The branch ends with the text of the line-type font, which is no line type.
    if (!lt->FindNodeByName("Type")) continue;
    std::string note;
    const std::vector<double> dashes = Dashes(lt, note);
    out += "<figure>";
    OpenSvg(out, "linetype", lt->Name(), kLineMm, 4, kLinePxPerMm);
    out += "<line x1=\"0\" y1=\"2\"";
    Attr(out, "x2", kLineMm);
    // A glyph of the line-type font is drawn by the application; grey stands in for it.
    out += note[0] == 'g' ? " y2=\"2\" stroke=\"#999\"" : " y2=\"2\" stroke=\"#000\"";
    out += " stroke-width=\"0.5\"";
    AppendDashArray(out, dashes);
    out += "/></svg>";
    char buf[96];
    std::snprintf(buf, sizeof buf, "type %g, pattern %g, ratio %g, from its ", Param(lt, "Type", 0),
                  Param(lt, "Pattern", 0), Param(lt, "Ratio", 0));
    Caption(out, lt->Name(), buf + note);
  }
  out += "</div></section>";
}

void HatchLines(std::string& out, const Node* h, int family, const Tables& t) {
  const std::string n = std::to_string(family);
  const double angle = Field(h, "angle" + n, 60) * M_PI / 180, offset = Field(h, "offset" + n, 2),
               pitch = Field(h, "pitch" + n, 10);
  if (!(pitch > kTileMm * 2 / kMostLinesPerTile)) return;
  const double ux = std::cos(angle), uy = std::sin(angle), nx = -uy, ny = ux;
  double lo = 0, hi = 0;
  for (double cx : {0.0, kTileMm})
    for (double cy : {0.0, kTileMm}) lo = std::min(lo, cx * nx + cy * ny), hi = std::max(hi, cx * nx + cy * ny);
  std::string note;
  out += "<g stroke=\"" + Colour(Field(h, "color" + n, 255)) + "\"";
  Attr(out, "stroke-width", ThicknessMm(t, static_cast<int>(Field(h, "thickness" + n, 1))));
  AppendDashArray(out, Dashes(LineTypeAt(t, static_cast<int>(Field(h, "linetype" + n, 1))), note));
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

void OpenTile(std::string& out, const char* kind, const Node* entry) {
  out += "<figure>";
  OpenSvg(out, kind, Text(entry, "Name"), kTileMm, kTileMm, kTilePx / kTileMm);
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

void Patterns(std::string& out, const Node* patterns, const Tables& t) {
  const Node* hatching = patterns ? patterns->FindNodeByName("hatching") : nullptr;
  const Node* dotting = patterns ? patterns->FindNodeByName("dotting") : nullptr;
  const Node* coloring = patterns ? patterns->FindNodeByName("coloring") : nullptr;
  char buf[128];
  out += "<section id=\"hatchings\"><h2>Hatchings</h2><div class=\"grid\">";
  for (const Node* h : hatching ? hatching->SubNodes() : std::vector<Node*>()) {
    OpenTile(out, "hatching", h);
    const int families = static_cast<int>(std::clamp(Field(h, "nb hatch", 1), 0.0, 10.0));
    for (int f = 1; f <= families; ++f) HatchLines(out, h, f, t);
    CloseTile(out);
    std::snprintf(buf, sizeof buf, "%d line famil%s; first at %g\xC2\xB0, pitch %g mm", families, families == 1 ? "y" : "ies",
                  Field(h, "angle1", 60), Field(h, "pitch1", 10));
    Caption(out, Text(h, "Name"), buf);
  }
  out += "</div></section><section id=\"dottings\"><h2>Dottings</h2><div class=\"grid\">";
  for (const Node* d : dotting ? dotting->SubNodes() : std::vector<Node*>()) {
    OpenTile(out, "dotting", d);
    const double pitch = std::max(Field(d, "pitch", 10), 0.5);
    const bool zigzag = Field(d, "zig-zag", 0) != 0;
    out += "<g fill=\"" + Colour(Field(d, "color", 255)) + "\">";
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
    Caption(out, Text(d, "Name"), buf);
  }
  out += "</div></section><section id=\"colorings\"><h2>Colourings</h2><div class=\"grid\">";
  for (const Node* c : coloring ? coloring->SubNodes() : std::vector<Node*>()) {
    OpenTile(out, "coloring", c);
    out += "<rect width=\"30\" height=\"30\" fill=\"" + Colour(Field(c, "color", 4294967295.0)) + "\"/>";
    CloseTile(out);
    Caption(out, Text(c, "Name"), Colour(Field(c, "color", 4294967295.0)));
  }
  out += "</div></section>";
}

void Thicknesses(std::string& out, const Tables& t) {
  out += "<section id=\"thicknesses\"><h2>Line thicknesses</h2><div class=\"grid\">";
  char buf[96];
  for (size_t i = 0; i < t.thicknesses.size(); ++i) {
    const Node* row = t.thicknesses[i];
    const double mm = Field(row, "mm", 0.13);
    const double drawn = std::clamp(mm, 0.0, 5.0);
    const std::string name = std::to_string(i + 1);
    out += Field(row, "Availability", 0) != 0 ? "<figure>" : "<figure class=\"off\">";
    OpenSvg(out, "thickness", name, kLineMm, drawn + 2, kLinePxPerMm);
    out += "<line x1=\"0\" x2=\"60\"";
    Attr(out, "y1", drawn / 2 + 1);
    Attr(out, "y2", drawn / 2 + 1);
    Attr(out, "stroke-width", drawn);
    out += " stroke=\"#000\"/></svg>";
    std::snprintf(buf, sizeof buf, "%g mm, %g px%s", mm, Field(row, "Pixel", 1),
                  Field(row, "Availability", 0) != 0 ? "" : ", not available");
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
      out += 'M' + std::to_string(column * (size + 1) + x) + ' ' + std::to_string(y) + 'h' + std::to_string(end - x) +
             "v1h-" + std::to_string(end - x) + 'z';
      x = end;
    }
  out += "\"/>";
}

void Symbols(std::string& out, const Node* symbols, bool ansiFamily) {
  out += "<section id=\"symbols\"><h2>Engineering symbols</h2><div class=\"grid\">";
  for (const Node* s : symbols ? symbols->SubNodes() : std::vector<Node*>()) {
    const std::string_view name = Text(s, "Name"), font = Text(s, "Font");
    auto icons = DecodeIcons(Text(s, "Icon22x22"), 22);
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
    if (icons.empty()) icons = DecodeIcons(Text(s, "Icon16x16"), 16), size = 16, from = "its own 16-pixel icon";
    const int columns = std::max<int>(1, static_cast<int>(icons.size()));
    out += "<figure>";
    OpenSvg(out, "symbol", name, columns * (size + 1) - 1, size, kIconZoom * 22.0 / size);
    out += "<rect width=\"100%\" height=\"100%\" fill=\"#f4f4f4\"/>";
    if (icons.empty()) {
      from = "no icon";
      out += "<path d=\"M0 0L22 22M22 0L0 22\" stroke=\"#c00\" stroke-width=\"0.5\"/>";
    }
    for (size_t i = 0; i < icons.size(); ++i) IconPath(out, icons[i], size, static_cast<int>(i));
    out += "</svg>";
    std::string detail(font);
    detail += ", code ";
    detail += Text(s, "Charcode");
    detail += ", " + from;
    Caption(out, name, detail);
  }
  out += "</div></section>";
}

void Styles(std::string& out, const Node* styles, ZOLIDrwStandard* standard) {
  out += "<section id=\"styles\"><h2>Styles</h2>";
  for (const Node* type : styles ? styles->SubNodes() : std::vector<Node*>()) {
    const std::string& typeName = type->Name().str();
    ZOLListValZOLUnicodeString names, keys, kinds, values;
    if (standard->GetStyleNames(typeName.c_str(), &names) != S_OK) continue;
    ZOLDftStandardServices::ListFiledValues(standard, ZOLUnicodeString(typeName + "."), keys, kinds, values);
    out += "<details class=\"styletype\"><summary>";
    AppendEscaped(out, typeName);
    out += " <small>(" + std::to_string(names.Size()) + ")</small></summary>";
    for (int n = 1; n <= names.Size(); ++n) {
      const std::string prefix = typeName + "." + names[n].str() + ".";
      out += "<details><summary>";
      AppendEscaped(out, names[n].str());
      out += "</summary><table><tr><th>Parameter</th><th>Type</th><th>Value</th></tr>";
      for (int k = 1; k <= keys.Size(); ++k) {
        const std::string& key = keys[k].str();
        if (key.compare(0, prefix.size(), prefix) != 0) continue;
        out += "<tr><td>";
        AppendEscaped(out, std::string_view(key).substr(prefix.size()));
        out += "</td><td>";
        AppendEscaped(out, kinds[k].str());
        out += "</td><td>";
        AppendEscaped(out, values[k].str());
        out += "</td></tr>";
      }
      out += "</table></details>";
    }
    out += "</details>";
  }
  out += "</section>";
}

void OutlineValues(std::string& out, const Node* n) {
  for (const Value* v : n->Values()) {
    out += " <span class=\"v\">";
    if (HasNamedValues(*n) && !v->Name().IsEmpty()) {
      AppendEscaped(out, v->Name().str());
      out += ": ";
    }
    out += "<code>";
    AppendEscaped(out, v->Value().str());
    out += "</code> <i>";
    AppendEscaped(out, ValueKind(*v));
    out += "</i></span>";
  }
}

void OutlineLabel(std::string& out, const Node* n) {
  static const char* const kinds[] = {"root", "node", "typedef", "enumdef", "typeval"};
  out += "<b>";
  AppendEscaped(out, n->Name().str());
  out += "</b>";
  if (const std::string_view record = RecordName(*n); !record.empty()) {
    out += " [";
    AppendEscaped(out, record);
    out += ']';
  }
  const int kind = static_cast<int>(n->GetNodeType());
  if (kind != Node::PlainNode && kind >= 0 && kind <= 4) {
    out += " <small>";
    out += kinds[kind];
    out += "</small>";
  }
}

// The tree as nested lists, sub-nodes folded; walked with a stack, as a document may nest deeper
// than a call stack should.
void Outline(std::string& out, ZOLAnnStandardXMLParser& tree) {
  out += "<section id=\"tree\"><h2>Tree</h2><p><input id=\"q\" type=\"search\" placeholder=\"Find in the tree\"> "
         "<button id=\"openall\">Unfold all</button> <button id=\"closeall\">Fold all</button></p><ul class=\"tree\">";
  std::vector<std::pair<const Node*, size_t>> stack;
  for (const Node* root : {tree.Root(), tree.EnumRoot(), tree.TypeDefRoot()}) {
    if (!root) continue;
    stack.emplace_back(root, 0);
    out += "<li><details open><summary>";
    OutlineLabel(out, root);
    out += "</summary><ul>";
    while (!stack.empty()) {
      auto& [node, next] = stack.back();
      if (next == node->SubNodes().size()) {
        stack.pop_back();
        out += "</ul></details></li>";
        continue;
      }
      const Node* sub = node->SubNodes()[next++];
      if (sub->SubNodes().empty()) {
        out += "<li>";
        OutlineLabel(out, sub);
        OutlineValues(out, sub);
        out += "</li>";
        continue;
      }
      out += "<li><details><summary>";
      OutlineLabel(out, sub);
      OutlineValues(out, sub);
      out += " <small>(" + std::to_string(sub->SubNodes().size()) + ")</small></summary><ul>";
      stack.emplace_back(sub, 0);
    }
  }
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

std::string RenderReport(const std::string& file, ZOLAnnStandardXMLParser& tree, ZOLIDrwStandard* standard) {
  ZOLUnicodeString name, parent;
  standard->GetName(name);
  standard->GetParentStandard(parent);
  const int level = standard->GetStdVersion();
  const Node* root = tree.Root();
  Tables t;
  t.lineTypes = root ? root->FindNodeByName("LineTypes") : nullptr;
  if (const Node* lt = root ? root->FindNodeByName("LineThickness") : nullptr)
    t.thicknesses.assign(lt->SubNodes().begin(), lt->SubNodes().end());

  std::string out;
  out.reserve(4 << 20);
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
  LineTypes(out, t);
  Patterns(out, root ? root->FindNodeByName("Patterns") : nullptr, t);
  Thicknesses(out, t);
  SheetFormats(out, standard);
  Symbols(out, root ? root->FindNodeByName("EngineeringSymbols") : nullptr, parent == "ANSI");
  Styles(out, root ? root->FindNodeByName("Styles") : nullptr, standard);
  Outline(out, tree);
  out += "<script>";
  out += kScript;
  out += "</script></body></html>\n";
  return out;
}

}  // namespace qelstd
