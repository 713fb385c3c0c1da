// qelstd fit SIZE CLASS: the limit deviations of a tolerance class at a nominal size.
#include <cmath>
#include <cstdio>
#include <limits>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>

#include "QelStandardServices.h"
#include "QelstdVerb.h"

namespace {

// A size in mm with at least three decimals and no trailing zeros beyond them.
std::string Millimetres(double value) {
  char text[64];
  std::snprintf(text, sizeof text, "%.6f", value);
  std::string s = text;
  while (s.size() > 1 && s.back() == '0' && s.size() - s.find('.') > 4) s.pop_back();
  return s;
}

// Micrometres with their sign, as ISO 286 writes them: +21, -7, 0.
std::string Micrometres(long value) { return (value > 0 ? "+" : "") + std::to_string(value); }

int RunFit(double size, const std::string& fit, bool json) {
  double upper = std::numeric_limits<double>::quiet_NaN(), lower = upper;
  QelStandardServices::GetNumericalTolerance(size, fit.c_str(), "", upper, lower);
  if (std::isnan(upper)) {
    qelstd::Error(fit + " at " + Millimetres(size) + " mm",
                  "no limit deviations (classes H6 h6 H7 h7 H8 h8 H9 up to 3150 mm, F7 f7 g6 P7 up to 400 mm, "
                  "sizes above 0)");
    return qelstd::kNotFound;
  }
  const long upperUm = std::lround(upper * 1000), lowerUm = std::lround(lower * 1000);
  if (json) {
    nlohmann::ordered_json out;
    out["size"] = size;
    out["class"] = fit;
    out["upperDeviation"] = upperUm;
    out["lowerDeviation"] = lowerUm;
    out["maximumSize"] = std::stod(Millimetres(size + upper));
    out["minimumSize"] = std::stod(Millimetres(size + lower));
    std::printf("%s\n", out.dump(2).c_str());
  } else {
    std::printf("fit:     %s %s\n", Millimetres(size).c_str(), fit.c_str());
    std::printf("upper:   %s um\n", Micrometres(upperUm).c_str());
    std::printf("lower:   %s um\n", Micrometres(lowerUm).c_str());
    std::printf("limits:  %s to %s mm\n", Millimetres(size + lower).c_str(), Millimetres(size + upper).c_str());
  }
  return qelstd::kDone;
}

void SetupFit(CLI::App& app, int* status) {
  auto size = std::make_shared<double>(0);
  auto fit = std::make_shared<std::string>();
  auto json = std::make_shared<bool>(false);
  CLI::App* verb = app.add_subcommand("fit", "Show the limit deviations of a tolerance class at a nominal size");
  verb->add_option("SIZE", *size, "Nominal size in mm")->required();
  verb->add_option("CLASS", *fit, "Tolerance class, capital for a hole: H6 h6 H7 h7 H8 h8 H9 F7 f7 g6 P7")->required();
  verb->add_flag("--json", *json,
                 "Print {size, class, upperDeviation, lowerDeviation (um), maximumSize, minimumSize (mm)}");
  verb->footer(
      "Deviations are those of ISO 286 in micrometres; a size on a range bound belongs to the range below.\n"
      "Exit status 1 when the class is unknown or the size lies outside its ranges.\n"
      "\nExample:\n"
      "  $ qelstd fit 25 H7\n"
      "  fit:     25.000 H7\n"
      "  upper:   +21 um\n"
      "  lower:   0 um\n"
      "  limits:  25.000 to 25.021 mm\n");
  verb->callback([size, fit, json, status] { *status = RunFit(*size, *fit, *json); });
}

const qelstd::VerbRegistrar registrar("fit", SetupFit);

}  // namespace
