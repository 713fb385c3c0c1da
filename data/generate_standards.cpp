// Host tool: turns the tables of data/ into the three built-in standard texts (ISO, ANSI-ASME, JIS),
// a C++ source that embeds them, and a C++ source with the engineering symbol catalogue and its icons.
//
//   generate_standards <data directory> <output directory>
//
// The output is a pure function of the tables: no time, locale or address enters it, so two runs give
// identical bytes. Any inconsistency in the tables (an unknown enumeration, a duplicate icon, a wrong
// count) stops the tool with a message naming the table and line, and the build fails.
//
// The texts are written by hand rather than through an XML library because their exact form is fixed
// (blanks around "=", no white space between elements, only "<" escaped), which no library writer
// produces; the little that is escaped is checked here.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <fstream>
#include <iterator>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "ZOLDftStdNamespace.h"

namespace {

const std::string kNamespaceUri(ZOLDftStdNamespaceURI);

enum Parent { ISO = 0, ANSI = 1, JIS = 2 };
constexpr int kParents = 3;
const char* const kStandardName[kParents] = {"ISO", "ANSI-ASME", "JIS"};
const char* const kParentWord[kParents] = {"ISO", "ANSI", "JIS"};

std::string gDataDir;

[[noreturn]] void Fail(const std::string& where, const std::string& why) {
  std::fprintf(stderr, "generate_standards: %s: %s\n", where.c_str(), why.c_str());
  std::exit(1);
}

std::vector<std::string> Split(const std::string& s, char sep) {
  std::vector<std::string> out;
  size_t start = 0;
  for (;;) {
    size_t p = s.find(sep, start);
    out.push_back(s.substr(start, p == std::string::npos ? std::string::npos : p - start));
    if (p == std::string::npos) return out;
    start = p + 1;
  }
}

std::vector<std::string> Words(const std::string& s) {
  std::vector<std::string> out;
  std::istringstream in(s);
  for (std::string w; in >> w;) out.push_back(w);
  return out;
}

// One line of a table, with its place for messages.
struct Row {
  std::string where;
  std::vector<std::string> cells;
  const std::string& At(size_t i) const {
    static const std::string empty;
    return i < cells.size() ? cells[i] : empty;
  }
};

// Reads a tab-separated table; "#" lines and empty lines are skipped.
std::vector<Row> ReadTable(const std::string& file) {
  std::ifstream in(gDataDir + "/" + file, std::ios::binary);
  if (!in) Fail(file, "cannot be read");
  std::vector<Row> rows;
  std::string line;
  for (int n = 1; std::getline(in, line); ++n) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.empty() || line[0] == '#') continue;
    rows.push_back({file + ":" + std::to_string(n), Split(line, '\t')});
  }
  return rows;
}

// A cell's text: a quoted cell ("", " ", """) stands for its content, blanks included.
std::string Literal(const std::string& cell) {
  if (cell.size() >= 2 && cell.front() == '"' && cell.back() == '"') return cell.substr(1, cell.size() - 2);
  return cell;
}

// The value of a per-parent row for one parent: ISO column, then ANSI and JIS when not empty;
// "~" says the parent has no such entry.
std::optional<std::string> ForParent(const Row& row, size_t isoColumn, int parent) {
  std::string cell = row.At(isoColumn);
  if (parent != ISO && !row.At(isoColumn + parent).empty()) cell = row.At(isoColumn + parent);
  if (cell == "~") return std::nullopt;
  return Literal(cell);
}

bool ParentListHas(const std::string& list, int parent) {
  if (list == "*" || list.empty()) return true;
  for (auto& w : Split(list, ','))
    if (w == kParentWord[parent]) return true;
  return false;
}

// ---------------------------------------------------------------------------------------------------
// The tree of one standard, in memory, and its writer.

enum class Kind { Int, Float, String, Enum, Color };

struct Value {
  Kind kind;
  std::string name;  // field name, enumeration name, or bound when minval
  std::string text;
  bool minval = false;
};

struct Node {
  bool typeVal = false;
  std::string name;
  std::vector<Value> values;
  std::vector<std::unique_ptr<Node>> kids;

  Node* Child(const std::string& n) {
    for (auto& k : kids)
      if (!k->typeVal && k->name == n) return k.get();
    return nullptr;
  }
  Node* Add(const std::string& n, bool isTypeVal = false) {
    kids.push_back(std::make_unique<Node>());
    kids.back()->name = n;
    kids.back()->typeVal = isTypeVal;
    return kids.back().get();
  }
  Node* Path(const std::string& dotted, bool create) {
    Node* at = this;
    for (auto& part : Split(dotted, '.')) {
      Node* next = at->Child(part);
      if (!next) {
        if (!create) return nullptr;
        next = at->Add(part);
      }
      at = next;
    }
    return at;
  }
  std::unique_ptr<Node> Clone() const {
    auto c = std::make_unique<Node>();
    c->typeVal = typeVal;
    c->name = name;
    c->values = values;
    for (auto& k : kids) c->kids.push_back(k->Clone());
    return c;
  }
  void Remove(const std::string& n) {
    kids.erase(std::remove_if(kids.begin(), kids.end(), [&](auto& k) { return k->name == n; }), kids.end());
  }
};

struct EnumDef {
  std::string name;
  std::vector<std::string> literals;
};

struct Field {
  std::string name;
  Kind kind;
  std::string enumName;
  std::string def;
};

struct TypeDef {
  std::string name;
  std::vector<Field> fields;
  const Field* Find(const std::string& n) const {
    for (auto& f : fields)
      if (f.name == n) return &f;
    return nullptr;
  }
};

struct Standard {
  std::vector<EnumDef> enums;
  std::vector<TypeDef> typedefs;
  Node root;
  const TypeDef* Type(const std::string& n) const {
    for (auto& t : typedefs)
      if (t.name == n) return &t;
    return nullptr;
  }
  const EnumDef* Enum(const std::string& n) const {
    for (auto& e : enums)
      if (e.name == n) return &e;
    return nullptr;
  }
};

void CheckText(const std::string& text, const std::string& where) {
  for (unsigned char c : text) {
    if (c >= 0x80) Fail(where, "text is not ASCII: " + text);
    if (c == '&') Fail(where, "text holds an ampersand: " + text);
  }
}

void CheckAttribute(const std::string& text) {
  for (unsigned char c : text)
    if (c >= 0x80 || c == '&' || c == '<' || c == '"' || c == '\n') Fail("attribute", "cannot hold: " + text);
}

class Writer {
public:
  std::string out;

  void Open(const char* element, const char* attribute, const std::string& value) {
    out += '<';
    out += element;
    if (attribute) Attribute(attribute, value);
    out += '>';
  }
  void Attribute(const char* attribute, const std::string& value) {
    CheckAttribute(value);
    out += ' ';
    out += attribute;
    out += " = \"";
    out += value;
    out += '"';
  }
  void Close(const char* element) {
    out += "</";
    out += element;
    out += '>';
  }
  void Text(const std::string& text) {
    CheckText(text, "value");
    for (char c : text) {
      if (c == '<')
        out += "&lt;";
      else
        out += c;
    }
  }
  void Val(const Value& v, bool named) {
    static const char* const tags[] = {"std:intval", "std:floatval", "std:strval", "std:enumval", "std:colorval"};
    const char* tag = tags[static_cast<int>(v.kind)];
    if (v.minval)
      Open(tag, "minval", v.name);
    else if (named || v.kind == Kind::Enum)
      Open(tag, "name", v.name);
    else
      Open(tag, nullptr, "");
    Text(v.text);
    Close(tag);
  }
  void Tree(const Node& n) {
    const char* tag = n.typeVal ? "std:typeval" : "std:node";
    Open(tag, "name", n.name);
    for (auto& v : n.values) Val(v, n.typeVal);
    for (auto& k : n.kids) Tree(*k);
    Close(tag);
  }
};

std::string WriteStandard(const Standard& s) {
  Writer w;
  w.out = "<?xml version='1.0' ?>\n<std:node";
  w.Attribute("xmlns:std", kNamespaceUri);
  w.Attribute("name", "drafting");
  w.out += '>';
  for (auto& e : s.enums) {
    w.Open("std:enumdef", "name", e.name);
    for (auto& l : e.literals) {
      w.Open("std:strval", nullptr, "");
      w.Text(l);
      w.Close("std:strval");
    }
    w.Close("std:enumdef");
  }
  for (auto& t : s.typedefs) {
    w.Open("std:typedef", "name", t.name);
    for (auto& f : t.fields) w.Val({f.kind, f.name, f.def}, true);
    w.Close("std:typedef");
  }
  for (auto& k : s.root.kids) w.Tree(*k);
  w.Close("std:node");
  return w.out;
}

// ---------------------------------------------------------------------------------------------------
// Enumerations and record types.

void LoadEnums(Standard& s, int parent) {
  for (auto& row : ReadTable("enums.tsv")) {
    if (!ParentListHas(row.At(1), parent)) continue;
    EnumDef e{row.At(0), {}};
    for (auto& lit : Split(row.At(2), '|')) {
      if (lit == "+fixed") {
        size_t n = e.literals.size();
        for (size_t i = 1; i < n; ++i) e.literals.push_back(e.literals[i] + " (fixed)");
      } else {
        e.literals.push_back(lit);
      }
    }
    if (s.Enum(e.name)) Fail(row.where, "enumeration defined twice for one parent: " + e.name);
    s.enums.push_back(std::move(e));
  }
}

Kind ParseKind(const std::string& word, std::string* enumName, const std::string& where) {
  if (word == "int") return Kind::Int;
  if (word == "float") return Kind::Float;
  if (word == "string") return Kind::String;
  if (word == "color") return Kind::Color;
  if (word.rfind("enum:", 0) == 0) {
    *enumName = word.substr(5);
    return Kind::Enum;
  }
  Fail(where, "unknown kind of value: " + word);
}

void LoadTypedefs(Standard& s) {
  auto rows = ReadTable("typedefs.tsv");
  for (size_t i = 0; i < rows.size(); ++i) {
    const Row& row = rows[i];
    TypeDef* t = s.typedefs.empty() || s.typedefs.back().name != row.At(0) ? nullptr : &s.typedefs.back();
    if (!t) {
      s.typedefs.push_back({row.At(0), {}});
      t = &s.typedefs.back();
    }
    auto kindWords = Words(row.At(2));
    if (row.At(1).find('#') == std::string::npos) {
      Field f{row.At(1), Kind::String, "", Literal(row.At(3))};
      f.kind = ParseKind(kindWords.at(0), &f.enumName, row.where);
      t->fields.push_back(f);
      continue;
    }
    // A group of members that repeats: the first row carries "xN".
    if (kindWords.size() != 2 || kindWords[1][0] != 'x') Fail(row.where, "a group starts with kind and xN");
    int times = std::atoi(kindWords[1].c_str() + 1);
    size_t end = i;
    while (end < rows.size() && rows[end].At(1).find('#') != std::string::npos) ++end;
    for (int n = 1; n <= times; ++n) {
      for (size_t j = i; j < end; ++j) {
        Field f{rows[j].At(1), Kind::String, "", Literal(rows[j].At(3))};
        f.name.replace(f.name.find('#'), 1, std::to_string(n));
        f.kind = ParseKind(Words(rows[j].At(2)).at(0), &f.enumName, rows[j].where);
        t->fields.push_back(f);
      }
    }
    i = end - 1;
  }
}

// ---------------------------------------------------------------------------------------------------
// Record tables: a header of field names (a "name:kind" header for a field that the record type
// lacks), meta columns "@parents", "@repeat", "@style", "@source", empty cells for absent fields.

struct Record {
  std::vector<std::pair<std::string, std::string>> fields;  // name, text
  std::vector<Kind> kinds;
  std::vector<std::string> enumNames;
  std::string style;  // sheet style named after this record, if any
  std::string Get(const std::string& n) const {
    for (auto& f : fields)
      if (f.first == n) return f.second;
    return "";
  }
};

std::vector<Record> LoadRecords(const Standard& s, const std::string& file, const std::string& type, int parent) {
  const TypeDef* t = s.Type(type);
  if (!t) Fail(file, "unknown record type " + type);
  auto rows = ReadTable(file);
  if (rows.empty()) Fail(file, "no header");
  const auto& header = rows[0].cells;
  std::vector<Record> out;
  for (size_t r = 1; r < rows.size(); ++r) {
    const Row& row = rows[r];
    Record rec;
    int repeat = 1;
    bool keep = true;
    for (size_t c = 0; c < header.size(); ++c) {
      const std::string& h = header[c];
      const std::string& cell = row.At(c);
      if (h == "@parents") {
        keep = ParentListHas(cell, parent);
      } else if (h == "@repeat") {
        if (!cell.empty()) repeat = std::atoi(cell.c_str());
      } else if (h == "@style") {
        rec.style = Literal(cell);
      } else if (h[0] == '@') {
        continue;
      } else if (!cell.empty()) {
        auto parts = Split(h, ':');
        std::string enumName;
        Kind kind;
        if (parts.size() > 1) {
          kind = ParseKind(parts[1], &enumName, file);
        } else {
          const Field* f = t->Find(h);
          if (!f) Fail(row.where, "record type " + type + " has no field " + h);
          kind = f->kind;
          enumName = f->enumName;
        }
        rec.fields.emplace_back(parts[0], Literal(cell));
        rec.kinds.push_back(kind);
        rec.enumNames.push_back(enumName);
      }
    }
    if (!keep) continue;
    for (int i = 0; i < repeat; ++i) out.push_back(rec);
  }
  return out;
}

void AddRecord(Node* parent, const std::string& type, const Record& rec) {
  Node* n = parent->Add(type, true);
  for (size_t i = 0; i < rec.fields.size(); ++i)
    n->values.push_back({rec.kinds[i], rec.fields[i].first, rec.fields[i].second});
}

// ---------------------------------------------------------------------------------------------------
// Rows of the trees (root.tsv, styles.tsv): path, kind, ISO value, ANSI value, JIS value, source.

struct Context {
  Standard* s;
  int parent;
  std::map<std::string, std::string> substitutions;  // {format} in sheet styles
};

std::string Substitute(std::string text, const Context& cx) {
  for (auto& [key, value] : cx.substitutions) {
    size_t p;
    while ((p = text.find(key)) != std::string::npos) text.replace(p, key.size(), value);
  }
  return text;
}

// "a|b|*N:v|*=N:v|@file.tsv" expands to the list: literals, N copies of v, copies of v up to N
// entries, the names of a record table.
std::vector<std::string> ExpandList(const std::string& spec, const Context& cx, const std::string& where) {
  std::vector<std::string> out;
  for (auto& tok : Split(spec, '|')) {
    if (tok.size() > 1 && tok[0] == '*') {
      size_t colon = tok.find(':');
      if (colon == std::string::npos) Fail(where, "repeat without value: " + tok);
      std::string v = Literal(tok.substr(colon + 1));
      if (tok[1] == '=') {
        size_t upTo = std::strtoul(tok.c_str() + 2, nullptr, 10);
        while (out.size() < upTo) out.push_back(v);
      } else {
        int n = std::atoi(tok.c_str() + 1);
        for (int i = 0; i < n; ++i) out.push_back(v);
      }
    } else if (tok.size() > 1 && tok[0] == '@') {
      auto words = Split(tok.substr(1), ':');
      for (auto& rec : LoadRecords(*cx.s, words.at(0), words.at(1), cx.parent)) out.push_back(rec.Get("Name"));
    } else {
      out.push_back(Literal(tok));
    }
  }
  return out;
}

void CheckEnumLiteral(const Standard& s, const std::string& enumName, const std::string& text, const std::string& where) {
  const EnumDef* e = s.Enum(enumName);
  if (!e) Fail(where, "no enumeration " + enumName);
  if (std::find(e->literals.begin(), e->literals.end(), text) == e->literals.end())
    Fail(where, "enumeration " + enumName + " has no literal '" + text + "'");
}

// Adds one parameter row below base; returns false when the kind is not a parameter kind.
bool AddParameter(Node* base, const std::string& path, const std::string& kindWord, const std::string& text,
                  const Context& cx, const std::string& where) {
  Standard& s = *cx.s;
  if (kindWord == "node") {
    base->Path(path, true);
    return true;
  }
  if (kindWord.rfind("rec:", 0) == 0) {
    std::string type = kindWord.substr(4);
    const TypeDef* t = s.Type(type);
    if (!t) Fail(where, "unknown record type " + type);
    size_t dot = path.rfind('.');
    Node* parent = dot == std::string::npos ? base : base->Path(path.substr(0, dot), true);
    Record rec;
    for (auto& pair : Split(text, '|')) {
      size_t eq = pair.find('=');
      const Field* f = t->Find(pair.substr(0, eq));
      if (eq == std::string::npos || !f) Fail(where, "not a field of " + type + ": " + pair);
      rec.fields.emplace_back(f->name, Literal(pair.substr(eq + 1)));
      rec.kinds.push_back(f->kind);
      rec.enumNames.push_back(f->enumName);
    }
    AddRecord(parent, type, rec);
    return true;
  }
  Node* n = base->Path(path, true);
  if (!n->values.empty()) Fail(where, "parameter given twice: " + path);
  std::string word = kindWord;
  Value v{Kind::String, "", Substitute(text, cx)};
  if (word == "ints" || word == "floats" || word == "strings") {
    Kind k = word == "ints" ? Kind::Int : word == "floats" ? Kind::Float : Kind::String;
    for (auto& item : ExpandList(text, cx, where)) n->values.push_back({k, "", item});
    return true;
  }
  if (word.rfind("float>=", 0) == 0) {
    v.kind = Kind::Float;
    v.minval = true;
    v.name = word.substr(7);
  } else {
    v.kind = ParseKind(word, &v.name, where);
    if (v.kind == Kind::Enum) CheckEnumLiteral(s, v.name, v.text, where);
  }
  n->values.push_back(v);
  return true;
}

// ---------------------------------------------------------------------------------------------------
// Styles: styles.tsv declares the kinds in order (with the name of a second style per parent) and
// aliases for groups of kinds; each parameter row names the kinds it belongs to. A kind written
// "Kind/variant" addresses the second style, built as a copy of Default, with "set" and "drop" rows.

struct StyleKind {
  std::string name;
  std::array<std::string, kParents> variant;
  bool sheets = false;
};

void BuildStyles(Context& cx, Node* styles) {
  auto rows = ReadTable("styles.tsv");
  std::vector<StyleKind> kinds;
  std::map<std::string, std::vector<std::string>> aliases;
  std::map<std::string, std::string> blockMount;
  std::map<std::string, std::vector<const Row*>> blocks;
  std::deque<Row> expanded;
  std::vector<const Row*> params;
  for (auto& row : rows) {
    if (row.At(0) == "block") {
      blockMount[row.At(1)] = row.At(2);
    } else if (row.At(0).rfind("block:", 0) == 0) {
      blocks[row.At(0).substr(6)].push_back(&row);
    } else if (row.At(1).rfind("@", 0) == 0) {
      auto use = Split(row.At(1).substr(1), ':');
      auto b = blocks.find(use[0]);
      if (b == blocks.end()) Fail(row.where, "no block " + use[0] + " defined above");
      std::string mount = use.size() > 1 ? use[1] : blockMount[use[0]];
      for (auto* member : b->second) {
        expanded.push_back(*member);
        expanded.back().where = row.where + " (" + member->where + ")";
        expanded.back().cells[0] = row.At(0);
        expanded.back().cells[1] = mount + "." + member->At(1);
        params.push_back(&expanded.back());
      }
    } else if (row.At(0) == "kind") {
      StyleKind k{row.At(1), {}, row.At(2) == "@sheets"};
      for (int p = 0; p < kParents; ++p) {
        auto v = ForParent(row, 2, p);
        if (v && !k.sheets) k.variant[p] = *v;
      }
      kinds.push_back(k);
    } else if (row.At(0) == "alias") {
      aliases[row.At(1)] = Split(row.At(2), ',');
    } else {
      params.push_back(&row);
    }
  }
  // The kinds and variant flag a row applies to.
  auto applies = [&](const Row& row, const std::string& kind, bool variant) {
    for (auto& item : Split(row.At(0), ',')) {
      std::string word = item;
      bool isVariant = false;
      if (word.size() > 8 && word.compare(word.size() - 8, 8, "/variant") == 0) {
        word.resize(word.size() - 8);
        isVariant = true;
      }
      if (isVariant != variant) continue;
      auto a = aliases.find(word);
      if (a != aliases.end()) {
        if (std::find(a->second.begin(), a->second.end(), kind) != a->second.end()) return true;
      } else if (word == kind) {
        return true;
      }
    }
    return false;
  };
  for (auto* row : params)
    for (auto& item : Split(row->At(0), ',')) {
      std::string word = item.substr(0, item.find('/'));
      bool known = aliases.count(word) > 0;
      for (auto& k : kinds) known = known || k.name == word;
      if (!known) Fail(row->where, "unknown kind " + word);
    }

  for (auto& kind : kinds) {
    Node* family = styles->Add(kind.name);
    auto build = [&](Node* style) {
      for (auto* row : params) {
        if (!applies(*row, kind.name, false)) continue;
        auto text = ForParent(*row, 3, cx.parent);
        if (!text) continue;
        AddParameter(style, row->At(1), row->At(2), *text, cx, row->where);
      }
    };
    if (kind.sheets) {
      for (auto& rec : LoadRecords(*cx.s, "sheet_formats.tsv", "Formats", cx.parent)) {
        cx.substitutions["{format}"] = rec.Get("Name");
        build(family->Add(rec.style.empty() ? rec.Get("Name") : rec.style));
      }
      cx.substitutions.clear();
      continue;
    }
    build(family->Add("Default"));
    const std::string& variantName = kind.variant[cx.parent];
    if (variantName.empty()) continue;
    auto copy = family->kids[0]->Clone();
    copy->name = variantName;
    for (auto* row : params) {
      if (!applies(*row, kind.name, true)) continue;
      auto text = ForParent(*row, 3, cx.parent);
      if (!text) continue;
      const std::string& path = row->At(1);
      if (row->At(2) == "drop") {
        size_t dot = path.rfind('.');
        Node* parent = dot == std::string::npos ? copy.get() : copy->Path(path.substr(0, dot), false);
        if (!parent) Fail(row->where, "nothing to drop at " + path);
        parent->Remove(dot == std::string::npos ? path : path.substr(dot + 1));
      } else if (row->At(2) == "set") {
        Node* n = copy->Path(path, false);
        if (!n || n->values.size() != 1) Fail(row->where, "no single value to set at " + path);
        if (n->values[0].kind == Kind::Enum) CheckEnumLiteral(*cx.s, n->values[0].name, *text, row->where);
        n->values[0].text = *text;
      } else {
        AddParameter(copy.get(), path, row->At(2), *text, cx, row->where);
      }
    }
    family->kids.push_back(std::move(copy));
  }
}

// ---------------------------------------------------------------------------------------------------
// Line types and the text of the line-type font.

std::string LineFontText() {
  std::string out = "60  60\n";
  std::string section = "";
  auto pairText = [](int v) {
    char buf[16];
    if (v < 0)
      std::snprintf(buf, sizeof buf, "-%02d", -v);
    else
      std::snprintf(buf, sizeof buf, "%03d", v);
    return std::string(buf);
  };
  for (auto& row : ReadTable("linefont.tsv")) {
    const std::string& code = row.At(0);
    if (row.At(1) != section) {
      section = row.At(1);
      out += "/\n/                     " + section + "\n/\n";
    }
    if (code == "-") continue;  // a section without glyphs
    if (!row.At(2).empty()) out += "/ " + row.At(2) + "\n";
    const std::string& strokes = row.At(3);
    if (!strokes.empty() && strokes[0] == '!') {  // written as it stands
      out += "$ " + code + strokes.substr(1) + "\n";
      continue;
    }
    auto numbers = Words(strokes);
    if (numbers.size() % 2) Fail(row.where, "glyph strokes come in pairs");
    std::string line = "$ " + code;
    size_t pairsOnLine = 0;
    for (size_t i = 0; i < numbers.size(); i += 2) {
      if (pairsOnLine == 6) {
        out += line + "\n";
        line = std::string(15, ' ');
        pairsOnLine = 0;
      }
      line += (pairsOnLine == 0 && line[0] == ' ' ? "" : "  ") + pairText(std::atoi(numbers[i].c_str())) + " " +
              pairText(std::atoi(numbers[i + 1].c_str()));
      ++pairsOnLine;
    }
    out += line + "  ;\n";
  }
  out += "/                     ***********************\n/\n";
  if (out.find(':') != std::string::npos) Fail("linefont.tsv", "the font text cannot hold a colon");
  return out;
}

void BuildLineTypes(Context& cx, Node* lineTypes) {
  for (auto& row : ReadTable("linetypes.tsv")) {
    auto range = Split(row.At(0), '-');
    int first = std::atoi(range[0].c_str()), last = std::atoi(range.back().c_str());
    std::string pattern = row.At(2);
    bool counting = !pattern.empty() && pattern.back() == '+';
    int patternValue = std::atoi(pattern.c_str());
    for (int n = first; n <= last; ++n) {
      Node* lt = lineTypes->Add("LineType" + std::to_string(n));
      lt->Add("Availability")->values.push_back({Kind::Int, "", "1"});
      lt->Add("Type")->values.push_back({Kind::Int, "", row.At(1)});
      lt->Add("Pattern")->values.push_back(
          {Kind::Int, "", counting ? std::to_string(patternValue + n - first) : pattern});
      lt->Add("Ratio")->values.push_back({Kind::Int, "", row.At(3)});
      auto segment = ForParent(row, 4, cx.parent);
      if (!segment) continue;
      Node* seg = lt->Add("Segment");
      for (auto& v : Words(*segment)) seg->values.push_back({Kind::Float, "", v});
    }
  }
  lineTypes->Add("font")->values.push_back({Kind::String, "", LineFontText()});
}

// ---------------------------------------------------------------------------------------------------
// Engineering symbols: the catalogue and its icons.

// A drawing is rasterised in three looks: heavy strokes (fonts of the KVISO1 family), thin strokes
// (SYM2), and thin strokes with a slight slant (SYM1 and SSS4).
enum Look { LookHeavy = 0, LookThin = 1, LookSlanted = 2 };
constexpr int kLooks = 3;
const char* const kLookName[kLooks] = {"heavy", "thin", "slanted"};

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

struct Symbol {
  std::string name;
  std::array<int, kParents> position{};  // 0: not in that parent's list
  std::array<std::string, kParents> code, font, flags;
  std::string drawing;                    // the catalogue's description, or "=<OTHER>"
  std::string sameAs;                     // the symbol whose drawing this one shares
  std::array<std::array<std::string, 2>, kLooks> icons;  // [look][16, 22]
  std::string where;
};

Look LookOfFont(const std::string& font) {
  if (font == "KVISO1.otf") return LookHeavy;
  if (font == "SYM2.font") return LookThin;
  return LookSlanted;
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
      if (pos[i] != static_cast<int>(i + 1)) Fail("symbols.tsv", std::string("positions of ") + kStandardName[p] + " have a gap");
  }
  return out;
}

void BuildSymbols(Context& cx, Node* branch, const std::vector<Symbol>& symbols) {
  std::vector<const Symbol*> rows;
  for (auto& s : symbols)
    if (s.position[cx.parent]) rows.push_back(&s);
  std::sort(rows.begin(), rows.end(), [&](auto* a, auto* b) { return a->position[cx.parent] < b->position[cx.parent]; });
  for (auto* s : rows) {
    Node* n = branch->Add("EngineeringSymbol", true);
    int look = LookOfFont(s->font[cx.parent]);
    auto flag = [&](int i) { return std::string(s->flags[cx.parent][static_cast<size_t>(i)] == 'Y' ? "Yes" : "No"); };
    n->values = {{Kind::String, "Name", s->name},
                 {Kind::Int, "Position", std::to_string(s->position[cx.parent])},
                 {Kind::String, "Font", s->font[cx.parent]},
                 {Kind::Int, "Charcode", s->code[cx.parent]},
                 {Kind::String, "Icon16x16", s->icons[static_cast<size_t>(look)][0]},
                 {Kind::String, "Icon22x22", s->icons[static_cast<size_t>(look)][1]},
                 {Kind::String, "ToleranceValue", flag(0)},
                 {Kind::String, "DatumReference", flag(1)},
                 {Kind::String, "Notes", flag(2)}};
  }
}

// ---------------------------------------------------------------------------------------------------
// One standard.

std::string BuildStandard(int parent, const std::vector<Symbol>& symbols) {
  Standard s;
  LoadEnums(s, parent);
  LoadTypedefs(s);
  Context cx{&s, parent, {}};
  for (auto& row : ReadTable("root.tsv")) {
    auto text = ForParent(row, 2, parent);
    if (!text) continue;
    const std::string& path = row.At(0);
    const std::string& kind = row.At(1);
    if (kind == "styles") {
      BuildStyles(cx, s.root.Path(path, true));
    } else if (kind == "linetypes") {
      BuildLineTypes(cx, s.root.Path(path, true));
    } else if (kind == "symbols") {
      BuildSymbols(cx, s.root.Path(path, true), symbols);
    } else if (kind.rfind("table:", 0) == 0) {
      Node* at = s.root.Path(path, true);
      std::string type = kind.substr(6);
      for (auto& rec : LoadRecords(s, *text, type, parent)) {
        for (size_t i = 0; i < rec.fields.size(); ++i)
          if (rec.kinds[i] == Kind::Enum) CheckEnumLiteral(s, rec.enumNames[i], rec.fields[i].second, row.where);
        AddRecord(at, type, rec);
      }
    } else {
      AddParameter(&s.root, path, kind, *text, cx, row.where);
    }
  }
  return WriteStandard(s);
}

// ---------------------------------------------------------------------------------------------------
// Outputs.

void WriteFile(const std::string& path, const std::string& content) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out << content;
  if (!out) Fail(path, "cannot be written");
}

// A raw string literal in pieces below the length that every compiler accepts.
std::string RawPieces(const std::string& text) {
  static const std::string delimiter = "QELSTD";
  if (text.find(")" + delimiter + "\"") != std::string::npos) Fail("text", "holds the raw string delimiter");
  std::string out;
  for (size_t i = 0; i < text.size(); i += 16000)
    out += "    R\"" + delimiter + "(" + text.substr(i, 16000) + ")" + delimiter + "\",\n";
  return out;
}

std::string Quoted(const std::string& s) {
  std::string out = "\"";
  for (char c : s) {
    if (c == '"' || c == '\\') out += '\\';
    out += c;
  }
  return out + "\"";
}

void WriteTextsSource(const std::string& dir, const std::array<std::string, kParents>& texts) {
  std::string out =
      "// Generated by data/generate_standards from the tables of data/; do not edit.\n"
      "#include \"ZOLDftBuiltinStandardsData.h\"\n\n";
  const char* const ids[kParents] = {"Iso", "AnsiAsme", "Jis"};
  for (int p = 0; p < kParents; ++p) {
    out += std::string("static const char* const k") + ids[p] + "Pieces[] = {\n" + RawPieces(texts[p]) + "};\n\n";
  }
  out += "const ZOLDftBuiltinStandardPieces kZOLDftBuiltinStandardPieces[3] = {\n";
  for (int p = 0; p < kParents; ++p)
    out += std::string("    {\"") + kStandardName[p] + "\", k" + ids[p] + "Pieces, sizeof k" + ids[p] +
           "Pieces / sizeof k" + ids[p] + "Pieces[0], " + std::to_string(texts[p].size()) + "},\n";
  out += "};\n";
  WriteFile(dir + "/ZOLDftBuiltinStandardsData.cpp", out);
}

void WriteSymbolSource(const std::string& dir, const std::vector<Symbol>& symbols) {
  std::string out =
      "// Generated by data/generate_standards from data/symbols.tsv; do not edit.\n"
      "#include \"ZOLDftEngineeringSymbolCatalog.h\"\n\n"
      "const ZOLDftEngineeringSymbol kZOLDftEngineeringSymbols[] = {\n";
  for (auto& s : symbols) {
    auto triple = [&](auto get) {
      std::string t = "{";
      for (int p = 0; p < kParents; ++p) t += (p ? ", " : "") + get(p);
      return t + "}";
    };
    out += "    {" + Quoted(s.name) + ",\n     " + triple([&](int p) { return std::to_string(s.position[p]); }) + ", " +
           triple([&](int p) { return s.code[p]; }) + ",\n     " + triple([&](int p) { return Quoted(s.font[p]); }) +
           ", " + triple([&](int p) { return Quoted(s.flags[p]); }) + ",\n     " +
           triple([&](int p) { return std::to_string(LookOfFont(s.font[p])); }) + ",\n     {";
    for (int look = 0; look < kLooks; ++look)
      out += std::string(look ? ",\n      " : "") + "{" + Quoted(s.icons[look][0]) + ", " + Quoted(s.icons[look][1]) + "}";
    out += "},\n     " + Quoted(s.sameAs) + "},\n";
  }
  out += "};\n\nconst int kZOLDftEngineeringSymbolCount = " + std::to_string(symbols.size()) + ";\n";
  WriteFile(dir + "/ZOLDftEngineeringSymbolCatalogData.cpp", out);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: generate_standards <data directory> <output directory>\n");
    return 2;
  }
  gDataDir = argv[1];
  std::string outDir = argv[2];
  auto symbols = LoadSymbols();
  std::array<std::string, kParents> texts;
  for (int p = 0; p < kParents; ++p) {
    texts[p] = BuildStandard(p, symbols);
    WriteFile(outDir + "/" + kStandardName[p] + ".xml", texts[p]);
  }
  WriteTextsSource(outDir, texts);
  WriteSymbolSource(outDir, symbols);
  return 0;
}
