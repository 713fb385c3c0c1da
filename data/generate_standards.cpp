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
#include "document/ZOLDftStdElement.h"
#include "generator_symbols.h"
#include "generator_tables.h"

namespace {

using namespace qelgen;

const std::string kNamespaceUri(ZOLDftStdNamespaceURI);

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

  void Open(ZOLDftStdElement element, const char* attribute, const std::string& value) {
    out += '<';
    out += ZOLDftStdElementQualifiedName(element);
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
  void Close(ZOLDftStdElement element) {
    out += "</";
    out += ZOLDftStdElementQualifiedName(element);
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
    using E = ZOLDftStdElement;
    static constexpr E kElements[] = {E::IntVal, E::FloatVal, E::StrVal, E::EnumVal, E::ColorVal};  // by Kind
    const E tag = kElements[static_cast<int>(v.kind)];
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
    const ZOLDftStdElement tag = n.typeVal ? ZOLDftStdElement::TypeVal : ZOLDftStdElement::Node;
    Open(tag, "name", n.name);
    for (auto& v : n.values) Val(v, n.typeVal);
    for (auto& k : n.kids) Tree(*k);
    Close(tag);
  }
};

std::string WriteStandard(const Standard& s) {
  Writer w;
  w.out = "<?xml version='1.0' ?>\n<" + std::string(ZOLDftStdElementQualifiedName(ZOLDftStdElement::Node));
  w.Attribute("xmlns:std", kNamespaceUri);
  w.Attribute("name", "drafting");
  w.out += '>';
  for (auto& e : s.enums) {
    w.Open(ZOLDftStdElement::EnumDef, "name", e.name);
    for (auto& l : e.literals) {
      w.Open(ZOLDftStdElement::StrVal, nullptr, "");
      w.Text(l);
      w.Close(ZOLDftStdElement::StrVal);
    }
    w.Close(ZOLDftStdElement::EnumDef);
  }
  for (auto& t : s.typedefs) {
    w.Open(ZOLDftStdElement::TypeDef, "name", t.name);
    for (auto& f : t.fields) w.Val({f.kind, f.name, f.def}, true);
    w.Close(ZOLDftStdElement::TypeDef);
  }
  for (auto& k : s.root.kids) w.Tree(*k);
  w.Close(ZOLDftStdElement::Node);
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
      "#include \"catalogue/ZOLDftBuiltinStandardsData.h\"\n\n";
  const char* const ids[kParents] = {"Iso", "AnsiAsme", "Jis"};
  for (int p = 0; p < kParents; ++p) {
    out += std::string("static const char* const k") + ids[p] + "Pieces[] = {\n" + RawPieces(texts[p]) + "};\n\n";
  }
  out += "const ZOLDftBuiltinStandardPieces kZOLDftBuiltinStandardPieces[kZOLDftBuiltinCount] = {\n";
  for (int p = 0; p < kParents; ++p)
    out += std::string("    {\"") + StandardName(p) + "\", k" + ids[p] + "Pieces, sizeof k" + ids[p] +
           "Pieces / sizeof k" + ids[p] + "Pieces[0], " + std::to_string(texts[p].size()) + "},\n";
  out += "};\n";
  WriteFile(dir + "/ZOLDftBuiltinStandardsData.cpp", out);
}

void WriteSymbolSource(const std::string& dir, const std::vector<Symbol>& symbols) {
  std::string out =
      "// Generated by data/generate_standards from data/symbols.tsv; do not edit.\n"
      "#include \"catalogue/ZOLDftEngineeringSymbolCatalog.h\"\n\n"
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


// The three tables of the engineering symbol lookup (symbol_tables.tsv): rows of a parent's list of
// the catalogue, then the departures of a table, in the order given.
void WriteEngSymbolTables(const std::string& dir, const std::vector<Symbol>& symbols) {
  struct TableRow {
    std::string name, font, code, icon16, icon22;
  };
  struct Table {
    std::string name, where;
    int parent = 0;
    std::string font;
    int look = 0;
    std::vector<TableRow> rows;
  };
  std::vector<Table> tables;
  auto symbol = [&](const std::string& name, const std::string& where) -> const Symbol& {
    for (auto& s : symbols)
      if (s.name == name) return s;
    Fail(where, "no symbol " + name + " in symbols.tsv");
  };
  auto rowOf = [](const Table& t, const Symbol& s) {
    auto& icons = s.icons[static_cast<size_t>(t.look)];
    return TableRow{s.name, t.font.empty() ? s.font[t.parent] : t.font, s.code[t.parent], icons[0], icons[1]};
  };
  auto find = [](Table& t, const std::string& name, const std::string& where) {
    for (auto it = t.rows.begin(); it != t.rows.end(); ++it)
      if (it->name == name) return it;
    Fail(where, "no row " + name + " in " + t.name);
  };
  for (auto& row : ReadTable("symbol_tables.tsv")) {
    const std::string& op = row.At(0);
    if (op == "table") {
      Table t;
      t.name = row.At(1);
      t.where = row.where;
      t.parent = -1;
      for (int p = 0; p < kParents; ++p)
        if (StandardName(p) == row.At(2)) t.parent = p;
      if (t.parent < 0) Fail(row.where, "no built-in standard " + row.At(2));
      t.font = row.At(4);
      t.look = -1;
      for (int look = 0; look < kLooks; ++look)
        if (row.At(5) == kLookName[look]) t.look = look;
      if (t.look < 0) Fail(row.where, "no look " + row.At(5));
      const int count = std::atoi(row.At(3).c_str());
      std::vector<const Symbol*> list;
      for (auto& s : symbols)
        if (s.position[t.parent] >= 1 && s.position[t.parent] <= count) list.push_back(&s);
      std::sort(list.begin(), list.end(),
                [&](auto* a, auto* b) { return a->position[t.parent] < b->position[t.parent]; });
      if (static_cast<int>(list.size()) != count) Fail(row.where, "the list is shorter than the table");
      for (auto* s : list) t.rows.push_back(rowOf(t, *s));
      tables.push_back(t);
      continue;
    }
    auto table = std::find_if(tables.begin(), tables.end(), [&](const Table& t) { return t.name == row.At(1); });
    if (table == tables.end()) Fail(row.where, "no table " + row.At(1) + " above");
    auto at = op == "insert" ? find(*table, row.At(3), row.where) : find(*table, row.At(2), row.where);
    if (op == "font") {
      at->font = row.At(3);
    } else if (op == "insert") {
      table->rows.insert(at + 1, rowOf(*table, symbol(row.At(2), row.where)));
    } else if (op == "join") {
      auto second = find(*table, row.At(3), row.where);
      at->name += second->name;
      at->font += second->font;
      at->code += second->code;
      table->rows.erase(second);
    } else if (op == "icons") {
      at->icon16.clear();
      at->icon22.clear();
      for (auto& key : Words(row.At(3))) {
        at->icon16 += HandDrawnIcon(key + " " + kLookName[table->look] + " 16");
        at->icon22 += HandDrawnIcon(key + " " + kLookName[table->look] + " 22");
      }
    } else {
      Fail(row.where, "unknown edit " + op);
    }
  }
  std::string out =
      "// Generated by data/generate_standards from data/symbol_tables.tsv and data/symbols.tsv; do not edit.\n"
      "#include \"domain/ZOLAnnStdEngineeringSymbolsData.h\"\n";
  for (auto& t : tables) {
    out += "\nstatic const ZOLAnnStdEngSymbolRow k" + t.name + "Rows[] = {\n";
    for (auto& r : t.rows)
      out += "    {" + Quoted(r.name) + ", " + Quoted(r.font) + ", " + Quoted(r.code) + ",\n     " + Quoted(r.icon16) +
             ",\n     " + Quoted(r.icon22) + "},\n";
    out += "};\nconst ZOLAnnStdEngSymbolTable k" + t.name + " = {k" + t.name + "Rows, " + std::to_string(t.rows.size()) +
           "};\n";
  }
  WriteFile(dir + "/ZOLAnnStdEngineeringSymbolsData.cpp", out);
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
    WriteFile(outDir + "/" + StandardName(p) + ".xml", texts[p]);
  }
  WriteTextsSource(outDir, texts);
  WriteSymbolSource(outDir, symbols);
  WriteEngSymbolTables(outDir, symbols);
  return 0;
}
