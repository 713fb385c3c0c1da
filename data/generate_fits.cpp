// Host tool: the limit deviations of the fit table, computed from the standard tolerance grades and
// the fundamental deviations of ISO 286-1 as iso286.tsv parameterises them, and written as a C++
// source of double constants in mm.
//
//   generate_fits <data directory> <output file>
//
// Every cell is computed in whole micrometres, so the constants are exact decimal texts. A table
// that does not add up (a class beyond the ranges, a value no rounding rule covers, a departure that
// the formula already gives or that no class uses) stops the tool, and the build fails.
#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "generator_tables.h"

namespace {

using namespace qelgen;

const char* const kTable = "iso286.tsv";

struct Range {
  double lower = 0, upper = 0;
  double mainLower = 0, mainUpper = 0;  // the main range whose grades and deviations it reads
};

struct Rounding {
  double upTo, multiple;
};

struct ToleranceClass {
  std::string name, where;
  double lastUpper;
};

struct Tables {
  std::vector<Range> ranges;
  std::vector<ToleranceClass> classes;
  std::map<std::string, std::vector<Rounding>> rounding;
  std::map<double, int> pStep;
  std::map<std::pair<std::string, double>, int> departures;
  std::set<std::pair<std::string, double>> usedDepartures;
};

double Number(const Row& row, size_t i) {
  const std::string& cell = row.At(i);
  char* end = nullptr;
  double v = std::strtod(cell.c_str(), &end);
  if (cell.empty() || *end) Fail(row.where, "not a number: \"" + cell + "\"");
  return v;
}

std::string Mm(double v) {
  char text[32];
  std::snprintf(text, sizeof text, "%g", v);
  return text;
}

Tables Load() {
  Tables t;
  std::vector<std::pair<double, bool>> steps;
  for (const Row& row : ReadTable(kTable)) {
    const std::string& kind = row.At(0);
    if (kind == "step") {
      if (row.At(2) != "main" && row.At(2) != "intermediate") Fail(row.where, "a step is main or intermediate");
      double upper = Number(row, 1);
      if (!steps.empty() && upper <= steps.back().first) Fail(row.where, "steps must rise");
      steps.push_back({upper, row.At(2) == "main"});
    } else if (kind == "class") {
      const std::string& name = row.At(1);
      if (name.size() < 2 || !std::isalpha(static_cast<unsigned char>(name[0])))
        Fail(row.where, "not a tolerance class: " + name);
      t.classes.push_back({name, row.where, Number(row, 2)});
    } else if (kind == "round") {
      auto& rules = t.rounding[row.At(1)];
      double upTo = Number(row, 2);
      if (!rules.empty() && upTo <= rules.back().upTo) Fail(row.where, "rounding bounds must rise");
      rules.push_back({upTo, Number(row, 3)});
    } else if (kind == "p-step") {
      int step = static_cast<int>(Number(row, 2));
      if (step < 0 || step > 5) Fail(row.where, "p lies 0 to 5 above IT7");
      t.pStep[Number(row, 1)] = step;
    } else if (kind == "departure") {
      t.departures[{row.At(1), Number(row, 2)}] = static_cast<int>(Number(row, 3));
    } else {
      Fail(row.where, "unknown kind of row: " + kind);
    }
  }
  if (steps.empty() || !steps.back().second) Fail(kTable, "the last step must be a main one");
  double lower = 0, mainLower = 0;
  for (size_t i = 0; i < steps.size(); ++i) {
    Range r;
    r.lower = lower;
    r.upper = steps[i].first;
    r.mainLower = mainLower;
    size_t m = i;
    while (!steps[m].second) ++m;
    r.mainUpper = steps[m].first;
    t.ranges.push_back(r);
    lower = r.upper;
    if (steps[i].second) mainLower = r.upper;
  }
  return t;
}

class Calculator {
public:
  explicit Calculator(Tables& t) : t_(t) {}

  // The standard tolerance of a grade in a main range, in µm.
  int Grade(int grade, const Range& r) {
    static const double kFactor[] = {7, 10, 16, 25, 40, 64, 100};  // IT5 to IT11
    if (grade < 5 || grade > 11) Fail(kTable, "grade IT" + std::to_string(grade) + " is not carried");
    const double d = MeanSize(r);
    const bool large = r.mainUpper > 500;
    const double factor = large ? 0.004 * d + 2.1 : 0.45 * std::cbrt(d) + 0.001 * d;
    const int computed = Round(large ? "it-large" : "it", kFactor[grade - 5] * factor);
    return Depart("IT" + std::to_string(grade), r, computed);
  }

  // The size of the fundamental deviation of a shaft letter in a main range, in µm: es for a to h,
  // ei for j to zc; a hole letter has the same size with the opposite sign.
  int Fundamental(char letter, const Range& r) {
    const double d = MeanSize(r);
    switch (letter) {
      case 'h':
        return 0;
      case 'f':
        return Depart("f", r, Round("deviation", 5.5 * std::pow(d, 0.41)));
      case 'g':
        return Depart("g", r, Round("deviation", 2.5 * std::pow(d, 0.34)));
      case 'p': {
        if (r.mainUpper > 500) return Depart("p", r, Round("deviation", 0.072 * d + 37.8));
        auto step = t_.pStep.find(r.mainUpper);
        std::optional<int> computed;
        if (step != t_.pStep.end()) computed = Grade(7, r) + step->second;
        return Depart("p", r, computed);
      }
      default:
        Fail(kTable, std::string("the deviation of letter ") + letter + " is not carried");
    }
  }

  // Upper and lower limit deviation of a class in a range, in µm.
  std::pair<int, int> Limits(const std::string& name, const Range& r, const std::string& where) {
    const char letter = name[0];
    const char shaft = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    const int grade = std::atoi(name.c_str() + 1);
    const int width = Grade(grade, r);
    const int fundamental = Fundamental(shaft, r);
    if (letter == shaft) {
      if (shaft <= 'h') return {-fundamental, -fundamental - width};
      return {fundamental + width, fundamental};
    }
    if (shaft <= 'h') return {fundamental + width, fundamental};
    if (shaft < 'p') Fail(where, "holes J to N follow rules that are not carried");
    // Holes P to ZC of grades up to 7 take back the step between their grade and the one below,
    // above 3 mm, so that a hole and a shaft of neighbouring grades keep the same interference.
    const int delta = grade <= 7 && r.mainUpper > 3 ? width - Grade(grade - 1, r) : 0;
    const int upper = -fundamental + delta;
    return {upper, upper - width};
  }

private:
  static double MeanSize(const Range& r) { return std::sqrt(std::max(r.mainLower, 1.0) * r.mainUpper); }

  int Round(const std::string& kind, double value) {
    auto rules = t_.rounding.find(kind);
    if (rules == t_.rounding.end()) Fail(kTable, "no rounding rules for " + kind);
    for (const Rounding& rule : rules->second)
      if (value <= rule.upTo) return static_cast<int>(rule.multiple * std::floor(value / rule.multiple + 0.5));
    Fail(kTable, "no rounding rule of " + kind + " covers " + std::to_string(value) + " µm");
  }

  int Depart(const std::string& quantity, const Range& r, std::optional<int> computed) {
    const std::pair<std::string, double> key{quantity, r.mainUpper};
    auto d = t_.departures.find(key);
    const std::string where = quantity + " up to " + Mm(r.mainUpper) + " mm";
    if (d == t_.departures.end()) {
      if (!computed) Fail(kTable, where + " has neither a rule nor a departure");
      return *computed;
    }
    if (computed && *computed == d->second) Fail(kTable, "the departure of " + where + " is what the formula gives");
    t_.usedDepartures.insert(key);
    return d->second;
  }

  Tables& t_;
};

std::string Decimal(int micrometres) {
  char text[32];
  std::snprintf(text, sizeof text, "%.3f", micrometres / 1000.0);
  return text;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: generate_fits <data directory> <output file>\n");
    return 2;
  }
  gToolName = "generate_fits";
  gDataDir = argv[1];
  Tables t = Load();
  Calculator calc(t);

  std::string out =
      "// Generated by data/generate_fits from data/iso286.tsv; do not edit.\n"
      "#include \"domain/QelStdFitTableData.h\"\n\n"
      "const QelStdFitRange kQelStdFitRanges[] = {\n";
  for (size_t i = 0; i < t.ranges.size(); ++i) {
    char name[32];
    std::snprintf(name, sizeof name, "quality%02zu", i + 1);
    out += std::string("    {\"") + name + "\", " + Mm(t.ranges[i].lower) + ", " + Mm(t.ranges[i].upper) + "},\n";
  }
  out += "};\nconst int kQelStdFitRangeCount = " + std::to_string(t.ranges.size()) + ";\n\n";

  std::string classes = "const QelStdFitClass kQelStdFitClasses[] = {\n";
  std::set<std::string> seen;
  for (size_t c = 0; c < t.classes.size(); ++c) {
    const ToleranceClass& tc = t.classes[c];
    if (!seen.insert(tc.name).second) Fail(tc.where, "class given twice: " + tc.name);
    const std::string id = "kCells" + std::to_string(c);
    out += "// " + tc.name + "\nstatic const QelStdFitCell " + id + "[] = {\n";
    int count = 0;
    bool reached = false;
    for (const Range& r : t.ranges) {
      auto [upper, lower] = calc.Limits(tc.name, r, tc.where);
      out += "    {" + Decimal(upper) + ", " + Decimal(lower) + "},\n";
      ++count;
      if (r.upper == tc.lastUpper) {
        reached = true;
        break;
      }
    }
    if (!reached) Fail(tc.where, "the last range of " + tc.name + " is not a step");
    out += "};\n";
    classes += "    {\"" + tc.name + "\", " + id + ", " + std::to_string(count) + "},\n";
  }
  out += "\n" + classes + "};\nconst int kQelStdFitClassCount = " + std::to_string(t.classes.size()) + ";\n";

  for (auto& [key, value] : t.departures)
    if (!t.usedDepartures.count(key))
      Fail(kTable, "the departure of " + key.first + " up to " + Mm(key.second) + " mm serves no class");

  std::ofstream file(argv[2], std::ios::binary | std::ios::trunc);
  file << out;
  if (!file) Fail(argv[2], "cannot be written");
  return 0;
}
