// Drafting domain services: limit deviations of fits, legacy formats, separator codes, content types.
#include "QelStandardServices.h"

#include <functional>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "ZOLQelLocalStandardAttributes.h"
#include "ZOLSysLog.h"
#include "domain/QelStdFitTableData.h"
#include "domain/QelStdLegacyV4Data.h"

namespace {

struct NameHash {
  using is_transparent = void;
  size_t operator()(std::string_view s) const { return std::hash<std::string_view>{}(s); }
};

template <class T>
using NameMap = std::unordered_map<std::string, T, NameHash, std::equal_to<>>;

struct FitLimits {
  double upperDeviation;
  double lowerDeviation;
};

// Range name to the limits of one class; empty for a name that is no class.
using FitDeviations = NameMap<std::unique_ptr<FitLimits>>;

// Every name ever asked keeps its entry, a class or not, so that a second query of it costs two
// lookups; it lives to the end of the process.
NameMap<FitDeviations>& FitTable() {
  static NameMap<FitDeviations> table;
  return table;
}

FitDeviations BuildFit(std::string_view name) {
  FitDeviations fit;
  for (int c = 0; c < kQelStdFitClassCount; ++c) {
    const QelStdFitClass& cls = kQelStdFitClasses[c];
    if (name != cls.name) continue;
    for (int r = 0; r < cls.count; ++r)
      fit.emplace(kQelStdFitRanges[r].name,
                  std::make_unique<FitLimits>(FitLimits{cls.cells[r].upperDeviation, cls.cells[r].lowerDeviation}));
    break;
  }
  return fit;
}

// "undefined" for a size in no range: 0 or below, above the last range, NaN.
std::string_view RangeName(double size) {
  for (int r = 0; r < kQelStdFitRangeCount; ++r)
    if (kQelStdFitRanges[r].lower < size && size <= kQelStdFitRanges[r].upper) return kQelStdFitRanges[r].name;
  return "undefined";
}

// The separators by code, from 1: what a number format stores in NDSepNum and NDSep1000.
constexpr std::string_view kSymbols[] = {"/", ":", "(", ")", "\"", ",", "<", ">", "X",
                                         "*", ".", ";", "+", "[", "]", "-", "_", " "};
constexpr int kSymbolCount = static_cast<int>(std::size(kSymbols));

QelStandardServices::QelContentType ContentType(std::string_view name) {
  std::shared_ptr<LocalAttributeMap> standards, styles;
  ZOLQelLocalStandardAttributes::GetLocalStandardMap(standards);
  if (!standards) {
    ZOLAssertPointer("");
    return QelStandardServices::ContentUnknown;
  }
  ZOLQelLocalStandardAttributes::GetLocalStyleMap(styles);
  if (!styles) {
    ZOLAssertPointer("");
    return QelStandardServices::ContentUnknown;
  }
  const std::string bare(name);
  if (standards->count(bare)) return QelStandardServices::ContentStandard;
  if (styles->count(bare)) return QelStandardServices::ContentStyle;
  // A sequence is admitted by its first element.
  const std::string first = bare + ".1";
  if (standards->count(first)) return QelStandardServices::ContentStandard;
  if (styles->count(first)) return QelStandardServices::ContentStyle;
  return QelStandardServices::ContentUnknown;
}

}  // namespace

namespace QelStandardServices {

HRESULT GetNumericalTolerance(const double& nominalSize, const ZOLUnicodeString& fit, const ZOLUnicodeString&,
                              double& upperDeviation, double& lowerDeviation) {
  const std::string_view key(fit.ConvertToChar());
  auto& table = FitTable();
  auto entry = table.find(key);
  if (entry == table.end()) entry = table.emplace(std::string(key), BuildFit(key)).first;
  const FitDeviations& deviations = entry->second;
  auto limits = deviations.find(RangeName(nominalSize));
  if (limits != deviations.end() && limits->second) {
    upperDeviation = limits->second->upperDeviation;
    lowerDeviation = limits->second->lowerDeviation;
  }
  return S_OK;
}

std::vector<std::shared_ptr<QelStdUnitDescription>> GetLegacyV4Units() { return QelStdBuildLegacyV4Units(); }

std::vector<std::shared_ptr<QelStdToleranceDescription>> GetLegacyV4Tolerances() {
  return QelStdBuildLegacyV4Tolerances();
}

ZOLUnicodeString GetSymbolFromTable(int code) {
  if (code < 1 || code > kSymbolCount) return ZOLUnicodeString();
  return ZOLUnicodeString(kSymbols[code - 1]);
}

int GetSymbolFromTable(ZOLUnicodeString symbol) {
  for (int i = 0; i < kSymbolCount; ++i)
    if (symbol == kSymbols[i]) return i + 1;
  return -1;
}

QelContentType getContentType(const char* name) { return ContentType(name ? name : ""); }

QelContentType getContentType(ZOLUnicodeString name) { return ContentType(name.ConvertToChar()); }

}  // namespace QelStandardServices
