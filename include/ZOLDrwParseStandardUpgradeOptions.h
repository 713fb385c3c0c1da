// Options of an upgrade: one word whose bit 0 says whether delivered defaults are replaced.
#pragma once
#include <cstdint>

struct ZOLDrwParseStandardUpgradeOptions {
  /// Clears UpdateDefaultValues only; the other 31 bits of the word carry nothing and are not set.
  ZOLDrwParseStandardUpgradeOptions() { UpdateDefaultValues = 0; }
  /// Copies the whole word.
  ZOLDrwParseStandardUpgradeOptions(const ZOLDrwParseStandardUpgradeOptions&) = default;
  ZOLDrwParseStandardUpgradeOptions(ZOLDrwParseStandardUpgradeOptions&&) = default;
  ZOLDrwParseStandardUpgradeOptions& operator=(const ZOLDrwParseStandardUpgradeOptions&) = default;
  ZOLDrwParseStandardUpgradeOptions& operator=(ZOLDrwParseStandardUpgradeOptions&&) = default;

  /// 1: steps also replace delivered defaults (colours, sizes, rows, symbols) by the new delivered
  /// values; 0: steps only add what a release needs and keep the look of the standard.
  uint32_t UpdateDefaultValues : 1;
  uint32_t : 31;
};
