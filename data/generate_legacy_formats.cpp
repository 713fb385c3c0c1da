// Host tool: the legacy unit and tolerance formats, from legacy_units.tsv and legacy_tolerances.tsv,
// as a C++ source that builds their objects.
//
//   generate_legacy_formats <data directory> <output file>
//
// Each field of a format is given once, either for all rows ("common") or per row (a column); a field
// given twice or not at all, a cell that is not of the field's type, or a count of rows other than
// the one expected stops the tool. Numbers are written with the digits of the table, no more.
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <string>
#include <vector>

#include "generator_tables.h"

namespace {

using namespace qelgen;

enum class Type { Text, Int, Real };

struct Field {
  const char* name;
  Type type;
};

// The fields in the order of the many-argument constructors.
const std::vector<Field> kUnitFields = {
    {"Name", Type::Text},        {"NDType", Type::Int},       {"NDUnit", Type::Int},       {"NDGlobalFact", Type::Real},
    {"NDNulFac_1", Type::Int},   {"NDNulFac_2", Type::Int},   {"NDExise", Type::Int},      {"NDSep1000", Type::Text},
    {"NDFact_1", Type::Real},    {"NDFact_2", Type::Real},    {"NDFact_3", Type::Real},    {"NDValPos_1", Type::Real},
    {"NDValPos_2", Type::Real},  {"NDValPos_3", Type::Real},  {"NDSepar_1", Type::Text},   {"NDSepar_2", Type::Text},
    {"NDSepar_3", Type::Text},   {"NDSepScl_1", Type::Real},  {"NDSepScl_2", Type::Real},  {"NDSepScl_3", Type::Real},
    {"NDSepPos_1", Type::Real},  {"NDSepPos_2", Type::Real},  {"NDSepPos_3", Type::Real},  {"NDRestX", Type::Real},
    {"NDRestY", Type::Real},     {"NDFinZer", Type::Int},     {"NDSepNum", Type::Text},    {"NDTypFrac", Type::Int},
    {"NDSepDen", Type::Int},     {"NDOperY", Type::Real},     {"NDNulOther", Type::Int},   {"NDResScl", Type::Real},
    {"NDFact", Type::Int}};

const std::vector<Field> kToleranceFields = {
    {"Name", Type::Text},         {"TolType", Type::Int},      {"TolSepar_1", Type::Int},   {"TolSepar_2", Type::Int},
    {"TolSymbolH", Type::Real},   {"TolSepTo_1", Type::Int},   {"TolSepTo_2", Type::Int},   {"TolSepTo_3", Type::Int},
    {"TolTrailing", Type::Int},   {"TolFractLine", Type::Int}, {"TolPtOnValue", Type::Int}, {"TolAnchorPt", Type::Int},
    {"TolIntX", Type::Real},      {"TolIntY", Type::Real},     {"TolExtX", Type::Real},     {"TolExtY", Type::Real},
    {"TolMergeSame", Type::Int},  {"TolShowNull", Type::Int},  {"TolScale", Type::Real},    {"TolDispFact", Type::Real}};

// A C++ literal of a text: quotation marks and backslashes escaped, bytes above ASCII as \x escapes
// closed by a new piece, so that a following hexadecimal digit is not taken into the escape.
std::string TextLiteral(const std::string& text) {
  std::string out = "\"";
  for (unsigned char c : text) {
    if (c == '"' || c == '\\') {
      out += '\\';
      out += static_cast<char>(c);
    } else if (c >= 0x80 || c < 0x20) {
      char escape[8];
      std::snprintf(escape, sizeof escape, "\\x%02X\" \"", c);
      out += escape;
    } else {
      out += static_cast<char>(c);
    }
  }
  return out + "\"";
}

std::string Literal(const std::string& cell, Type type, const std::string& where) {
  if (type == Type::Text) return TextLiteral(qelgen::Literal(cell));
  char* end = nullptr;
  if (type == Type::Int) {
    std::strtol(cell.c_str(), &end, 10);
  } else {
    std::strtod(cell.c_str(), &end);
  }
  if (cell.empty() || *end) Fail(where, "not a number: \"" + cell + "\"");
  if (type == Type::Real && cell.find_first_of(".eE") == std::string::npos) return cell + ".0";
  return cell;
}

// The constructor calls of one table, one per row.
std::string Records(const std::string& file, const std::vector<Field>& fields, const char* className,
                    size_t expectedRows) {
  std::map<std::string, std::string> common;
  std::vector<std::string> columns;
  std::string out;
  size_t rows = 0;
  auto typeOf = [&](const std::string& name, const std::string& where) {
    for (const Field& f : fields)
      if (name == f.name) return f.type;
    Fail(where, "no field " + name + " in " + className);
  };
  for (const Row& row : ReadTable(file)) {
    const std::string& kind = row.At(0);
    if (kind == "common") {
      if (!common.emplace(row.At(1), Literal(row.At(2), typeOf(row.At(1), row.where), row.where)).second)
        Fail(row.where, "field given twice: " + row.At(1));
    } else if (kind == "columns") {
      columns.assign(row.cells.begin() + 1, row.cells.end());
      for (const std::string& c : columns) {
        typeOf(c, row.where);
        if (common.count(c)) Fail(row.where, "field both common and a column: " + c);
      }
      if (columns.size() + common.size() != fields.size()) Fail(row.where, "fields missing");
    } else if (kind == "row") {
      if (row.cells.size() != columns.size() + 1) Fail(row.where, "cells do not match the columns");
      std::map<std::string, std::string> cells = common;
      for (size_t i = 0; i < columns.size(); ++i)
        cells[columns[i]] = Literal(row.cells[i + 1], typeOf(columns[i], row.where), row.where);
      out += "  out.push_back(std::make_shared<" + std::string(className) + ">(";
      for (size_t i = 0; i < fields.size(); ++i) out += (i ? ", " : "") + cells.at(fields[i].name);
      out += "));\n";
      ++rows;
    } else {
      Fail(row.where, "unknown kind of row: " + kind);
    }
  }
  if (rows != expectedRows) Fail(file, std::to_string(rows) + " rows, not " + std::to_string(expectedRows));
  return out;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: generate_legacy_formats <data directory> <output file>\n");
    return 2;
  }
  gToolName = "generate_legacy_formats";
  gDataDir = argv[1];
  std::string out =
      "// Generated by data/generate_legacy_formats from data/legacy_units.tsv and data/legacy_tolerances.tsv;\n"
      "// do not edit.\n"
      "#include \"domain/QelStdLegacyV4Data.h\"\n\n"
      "std::vector<std::shared_ptr<QelStdUnitDescription>> QelStdBuildLegacyV4Units() {\n"
      "  std::vector<std::shared_ptr<QelStdUnitDescription>> out;\n"
      "  out.reserve(14);\n" +
      Records("legacy_units.tsv", kUnitFields, "QelStdUnitDescription", 14) +
      "  return out;\n}\n\n"
      "std::vector<std::shared_ptr<QelStdToleranceDescription>> QelStdBuildLegacyV4Tolerances() {\n"
      "  std::vector<std::shared_ptr<QelStdToleranceDescription>> out;\n"
      "  out.reserve(22);\n" +
      Records("legacy_tolerances.tsv", kToleranceFields, "QelStdToleranceDescription", 22) + "  return out;\n}\n";
  std::ofstream file(argv[2], std::ios::binary | std::ios::trunc);
  file << out;
  if (!file) Fail(argv[2], "cannot be written");
  return 0;
}
