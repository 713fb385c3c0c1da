// The limit deviations of the fit table, generated at build time by data/generate_fits from
// data/iso286.tsv. Header-only declarations shared by the generated source and the services.
#pragma once

/// One range of nominal size in mm, open below and closed above.
struct QelStdFitRange {
  const char* name;  // "quality01" ... "quality29"
  double lower;
  double upper;
};

/// The limit deviations of a class in one range, in mm, signed.
struct QelStdFitCell {
  double upperDeviation;
  double lowerDeviation;
};

/// A tolerance class and its cells, one per range from the first, as far as the class reaches.
struct QelStdFitClass {
  const char* name;  // "H7", "f7", ...
  const QelStdFitCell* cells;
  int count;
};

extern const QelStdFitRange kQelStdFitRanges[];
extern const int kQelStdFitRangeCount;
extern const QelStdFitClass kQelStdFitClasses[];
extern const int kQelStdFitClassCount;
