// Icons of the engineering symbols: drawings of symbols.tsv rasterised at 16 and 22 pixels, and the
// hand-drawn bitmaps of icon_bitmaps.txt.
#include "generator_symbols.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace qelgen {
namespace {

struct Bitmap {
  int size;
  std::vector<unsigned char> ink;  // size*size
  explicit Bitmap(int n) : size(n), ink(static_cast<size_t>(n * n), 0) {}
  void Set(int x, int y) {
    if (x >= 0 && y >= 0 && x < size && y < size) ink[static_cast<size_t>(y * size + x)] = 1;
  }
  bool Get(int x, int y) const { return x >= 0 && y >= 0 && x < size && y < size && ink[static_cast<size_t>(y * size + x)]; }
};

std::string Base64(const std::vector<unsigned char>& bytes) {
  static const char* const digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string out;
  for (size_t i = 0; i < bytes.size(); i += 3) {
    unsigned v = bytes[i] << 16;
    if (i + 1 < bytes.size()) v |= bytes[i + 1] << 8;
    if (i + 2 < bytes.size()) v |= bytes[i + 2];
    out += digits[(v >> 18) & 63];
    out += digits[(v >> 12) & 63];
    out += i + 1 < bytes.size() ? digits[(v >> 6) & 63] : '=';
    out += i + 2 < bytes.size() ? digits[v & 63] : '=';
  }
  return out;
}

// Rows top to bottom, each padded to whole bytes, leftmost pixel in the most significant bit.
std::string Encode(const Bitmap& b) {
  int perRow = (b.size + 7) / 8;
  std::vector<unsigned char> bytes(static_cast<size_t>(perRow * b.size), 0);
  for (int y = 0; y < b.size; ++y)
    for (int x = 0; x < b.size; ++x)
      if (b.Get(x, y)) bytes[static_cast<size_t>(y * perRow + x / 8)] |= static_cast<unsigned char>(0x80 >> (x % 8));
  return Base64(bytes);
}

struct Pt {
  double x, y;
};

// Letters for text in icons: polylines on a grid 4 wide and 6 high, "/" between strokes.
std::map<char, std::vector<std::vector<Pt>>> LoadLetters() {
  std::map<char, std::vector<std::vector<Pt>>> letters;
  for (auto& row : ReadTable("icon_letters.tsv")) {
    auto& strokes = letters[row.At(0).at(0)];
    for (auto& part : Split(row.At(1), '/')) {
      auto n = Words(part);
      if (n.size() % 2 || n.size() < 2) Fail(row.where, "a stroke is a list of x y pairs");
      std::vector<Pt> line;
      for (size_t i = 0; i < n.size(); i += 2) line.push_back({std::atof(n[i].c_str()), std::atof(n[i + 1].c_str())});
      strokes.push_back(line);
    }
  }
  return letters;
}

// The shapes of one drawing in icon units (0..15 across, pixel centres of the 16 by 16 icon).
struct Shapes {
  std::vector<std::vector<Pt>> lines;     // open polylines
  std::vector<std::vector<Pt>> fills;     // filled polygons (outline drawn too)
};

std::vector<Pt> ArcPoints(double cx, double cy, double rx, double ry, double a0, double a1) {
  std::vector<Pt> pts;
  int steps = std::max(8, static_cast<int>(std::fabs(a1 - a0) / 7.5));
  for (int i = 0; i <= steps; ++i) {
    double a = (a0 + (a1 - a0) * i / steps) * M_PI / 180.0;
    pts.push_back({cx + rx * std::cos(a), cy - ry * std::sin(a)});
  }
  return pts;
}

// Commands, ";" between them: L x y x y ... (polyline), Z ... (closed outline), F ... (filled polygon),
// O cx cy r (circle), D cx cy r (disc), E cx cy rx ry (ellipse), A cx cy r a0 a1 (arc, degrees
// counter-clockwise from the right), S cx cy r a0 a1 (filled segment), T x y h TEXT (text from its top
// left), TC cx cy h TEXT (centred text).
Shapes ParseDrawing(const std::string& spec, const std::map<char, std::vector<std::vector<Pt>>>& letters,
                    const std::string& where) {
  Shapes s;
  for (auto& command : Split(spec, ';')) {
    auto w = Words(command);
    if (w.empty()) continue;
    const std::string& op = w[0];
    std::vector<double> n;
    for (size_t i = 1; i < w.size() && !(op[0] == 'T' && i == w.size() - 1); ++i) n.push_back(std::atof(w[i].c_str()));
    auto need = [&](size_t k) {
      if (n.size() != k) Fail(where, "command " + op + " needs " + std::to_string(k) + " numbers");
    };
    if (op == "L" || op == "Z" || op == "F") {
      if (n.size() < 4 || n.size() % 2) Fail(where, "command " + op + " needs x y pairs");
      std::vector<Pt> pts;
      for (size_t i = 0; i < n.size(); i += 2) pts.push_back({n[i], n[i + 1]});
      if (op == "Z") pts.push_back(pts.front());
      (op == "F" ? s.fills : s.lines).push_back(pts);
    } else if (op == "O" || op == "D") {
      need(3);
      auto pts = ArcPoints(n[0], n[1], n[2], n[2], 0, 360);
      (op == "D" ? s.fills : s.lines).push_back(pts);
    } else if (op == "E") {
      need(4);
      s.lines.push_back(ArcPoints(n[0], n[1], n[2], n[3], 0, 360));
    } else if (op == "A" || op == "S") {
      need(5);
      auto pts = ArcPoints(n[0], n[1], n[2], n[2], n[3], n[4]);
      (op == "S" ? s.fills : s.lines).push_back(pts);
    } else if (op == "T" || op == "TC") {
      need(3);
      const std::string& text = w.back();
      double h = n[2], cw = h * 4 / 6, gap = h / 5;
      double width = text.size() * cw + (text.size() - 1) * gap;
      double x0 = op == "TC" ? n[0] - width / 2 : n[0];
      double y0 = op == "TC" ? n[1] - h / 2 : n[1];
      for (size_t i = 0; i < text.size(); ++i) {
        auto it = letters.find(text[i]);
        if (it == letters.end()) Fail(where, std::string("no icon letter ") + text[i]);
        for (auto& stroke : it->second) {
          std::vector<Pt> pts;
          for (auto& p : stroke) pts.push_back({x0 + i * (cw + gap) + p.x * cw / 4, y0 + p.y * h / 6});
          s.lines.push_back(pts);
        }
      }
    } else {
      Fail(where, "unknown drawing command " + op);
    }
  }
  return s;
}

double SegmentDistance(Pt p, Pt a, Pt b) {
  double dx = b.x - a.x, dy = b.y - a.y;
  double len = dx * dx + dy * dy;
  double t = len > 0 ? ((p.x - a.x) * dx + (p.y - a.y) * dy) / len : 0;
  t = std::clamp(t, 0.0, 1.0);
  double ex = a.x + t * dx - p.x, ey = a.y + t * dy - p.y;
  return std::sqrt(ex * ex + ey * ey);
}

bool Inside(Pt p, const std::vector<Pt>& poly) {
  bool in = false;
  for (size_t i = 0, j = poly.size() - 1; i < poly.size(); j = i++) {
    if ((poly[i].y > p.y) != (poly[j].y > p.y) &&
        p.x < (poly[j].x - poly[i].x) * (p.y - poly[i].y) / (poly[j].y - poly[i].y) + poly[i].x)
      in = !in;
  }
  return in;
}

Bitmap Rasterise(const Shapes& shapes, int size, Look look) {
  double scale = (size - 1) / 15.0;
  auto map = [&](Pt p) {
    if (look == LookSlanted) p.x += (7.5 - p.y) * 0.15;
    return Pt{p.x * scale, p.y * scale};
  };
  Bitmap b(size);
  auto stroke = [&](const std::vector<Pt>& line) {
    for (int y = 0; y < size; ++y)
      for (int x = 0; x < size; ++x)
        for (size_t i = 0; i + 1 < line.size(); ++i)
          if (SegmentDistance({double(x), double(y)}, map(line[i]), map(line[i + 1])) <= 0.55) {
            b.Set(x, y);
            break;
          }
  };
  for (auto& line : shapes.lines) stroke(line);
  for (auto& poly : shapes.fills) {
    std::vector<Pt> mapped;
    for (auto& p : poly) mapped.push_back(map(p));
    for (int y = 0; y < size; ++y)
      for (int x = 0; x < size; ++x)
        if (Inside({double(x), double(y)}, mapped)) b.Set(x, y);
    auto closed = poly;
    closed.push_back(poly.front());
    stroke(closed);
  }
  if (look == LookHeavy) {  // one pixel more to the right and below: strokes two pixels wide
    Bitmap h = b;
    for (int y = 0; y < size; ++y)
      for (int x = 0; x < size; ++x)
        if (b.Get(x, y)) {
          h.Set(x + 1, y);
          h.Set(x, y + 1);
        }
    b = h;
  }
  return b;
}

// Bitmaps drawn by hand, for symbols whose icons are given pixel by pixel: "name look size" and then
// size lines of "#" (ink) and "." (paper).
std::map<std::string, Bitmap> LoadBitmaps() {
  std::map<std::string, Bitmap> out;
  std::ifstream in(gDataDir + "/icon_bitmaps.txt", std::ios::binary);
  if (!in) Fail("icon_bitmaps.txt", "cannot be read");
  std::string line;
  int n = 0;
  while (std::getline(in, line)) {
    ++n;
    if (line.empty() || line[0] == '#') continue;
    auto w = Words(line);
    if (w.size() != 3) Fail("icon_bitmaps.txt:" + std::to_string(n), "expected: name look size");
    int size = std::atoi(w[2].c_str());
    Bitmap b(size);
    for (int y = 0; y < size; ++y) {
      if (!std::getline(in, line) || static_cast<int>(line.size()) != size)
        Fail("icon_bitmaps.txt:" + std::to_string(n), "a bitmap row of the wrong width");
      ++n;
      for (int x = 0; x < size; ++x)
        if (line[static_cast<size_t>(x)] == '#') b.Set(x, y);
    }
    out.emplace(w[0] + " " + w[1] + " " + w[2], b);
  }
  return out;
}

}  // namespace

Look LookOfFont(const std::string& font) {
  if (font == "KVISO1.otf") return LookHeavy;
  if (font == "SYM2.font") return LookThin;
  return LookSlanted;
}

std::string HandDrawnIcon(const std::string& key) {
  static const std::map<std::string, Bitmap> bitmaps = LoadBitmaps();
  auto it = bitmaps.find(key);
  if (it == bitmaps.end()) Fail("icon_bitmaps.txt", "no bitmap " + key);
  return Encode(it->second);
}

std::vector<Symbol> LoadSymbols() {
  auto letters = LoadLetters();
  auto bitmaps = LoadBitmaps();
  std::vector<Symbol> out;
  // name, code, code ANSI, font, font ANSI, position ISO, position ANSI, flags, flags ANSI, drawing
  for (auto& row : ReadTable("symbols.tsv")) {
    Symbol s;
    s.name = row.At(0);
    s.where = row.where;
    for (int p = 0; p < kParents; ++p) {
      bool ansi = p == ANSI;
      s.code[p] = ansi && !row.At(2).empty() ? row.At(2) : row.At(1);
      s.font[p] = ansi && !row.At(4).empty() ? row.At(4) : row.At(3);
      std::string pos = ansi ? row.At(6) : row.At(5);
      s.position[p] = pos.empty() ? 0 : std::atoi(pos.c_str());
      s.flags[p] = ansi && !row.At(8).empty() ? row.At(8) : row.At(7);
      if (s.flags[p].size() != 3 || s.flags[p].find_first_not_of("YN") != std::string::npos)
        Fail(row.where, "flags are three of Y and N");
    }
    s.drawing = row.At(9);
    out.push_back(s);
  }
  for (auto& s : out) {
    std::string drawing = s.drawing;
    if (!drawing.empty() && drawing[0] == '=') {
      s.sameAs = drawing.substr(1);
      auto other = std::find_if(out.begin(), out.end(), [&](const Symbol& o) { return o.name == s.sameAs; });
      if (other == out.end() || (!other->drawing.empty() && other->drawing[0] == '='))
        Fail(s.where, "shares the drawing of an unknown symbol " + s.sameAs);
      drawing = other->drawing;
    }
    if (drawing.empty()) Fail(s.where, "a symbol needs a drawing");
    for (int look = 0; look < kLooks; ++look) {
      for (int k = 0; k < 2; ++k) {
        int size = k ? 22 : 16;
        if (drawing.rfind("bitmap", 0) == 0) {
          std::string key = (s.sameAs.empty() ? s.name : s.sameAs) + " " + kLookName[look] + " " + std::to_string(size);
          auto it = bitmaps.find(key);
          if (it == bitmaps.end()) Fail(s.where, "no bitmap " + key);
          s.icons[look][k] = Encode(it->second);
        } else {
          s.icons[look][k] = Encode(Rasterise(ParseDrawing(drawing, letters, s.where), size, static_cast<Look>(look)));
        }
      }
    }
  }
  // Different symbols must look different in every look and size.
  for (int look = 0; look < kLooks; ++look)
    for (int k = 0; k < 2; ++k) {
      std::map<std::string, const Symbol*> seen;
      for (auto& s : out) {
        auto [it, fresh] = seen.emplace(s.icons[look][k], &s);
        if (fresh) continue;
        const Symbol* o = it->second;
        bool same = s.sameAs == o->name || o->sameAs == s.name || (!s.sameAs.empty() && s.sameAs == o->sameAs);
        if (!same)
          Fail(s.where, s.name + " and " + o->name + " share a " + kLookName[look] + " icon of " +
                            std::to_string(k ? 22 : 16));
      }
    }
  // Each parent's positions run from 1 without a gap.
  for (int p = 0; p < kParents; ++p) {
    std::vector<int> pos;
    for (auto& s : out)
      if (s.position[p]) pos.push_back(s.position[p]);
    std::sort(pos.begin(), pos.end());
    for (size_t i = 0; i < pos.size(); ++i)
      if (pos[i] != static_cast<int>(i + 1)) Fail("symbols.tsv", "positions of " + StandardName(p) + " have a gap");
  }
  return out;
}

}  // namespace qelgen
