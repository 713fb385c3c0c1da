// Reads a standard file of any release, tells its parent and data level, and brings it up to a
// later level through the chain of upgrade stages, saving the result to a new file.
#pragma once
#include <vector>

#include "ZOLAnnStandardXMLValue.h"
#include "ZOLDrwParseStandardUpgradeOptions.h"
#include "ZOLString.h"
#include "ZOLUnicodeString.h"

class ZOLAnnStandardXMLParser;
class ZOLDrwParseParameter;
struct ZOLDrwMigrationStage;
class ZOLDrwMigrationContext;

class ZOLDrwParseStandard {
public:
  /// What the last upgrade pass did.
  struct Outcome {
    /// Number of stages that ran.
    int stagesRun = 0;
    /// The level the tree reached: the To of the last stage that ran, else the start level.
    int levelReached = -1;
    /// The first stage that should have run but is not built yet (1-based), 0 if none; the pass stopped there.
    int blockedStage = 0;
    /// Its From and To levels, and the name of its step.
    int blockedFrom = -1;
    int blockedTo = -1;
    const char* blockedStep = nullptr;
    /// 1 when the pass ended on a guard (stage 1 on a decoded tree, no tree after stage 1).
    bool stoppedByGuard = false;
    /// 1 when the pass was refused because the file did not decode: nothing ran, nothing was written.
    bool decodeFailed = false;
    /// 1 when the tree was written to the output path.
    bool saved = false;
  };

  /// A stage of the chain as the library ships it.
  struct StageInfo {
    /// 1-based position in the chain.
    int stage;
    /// The stage runs from a start level at most this.
    int from;
    /// The level it reaches.
    int to;
    /// 1 for the stage that builds the tree from flat legacy text; it runs whatever the target.
    bool fromFlatText;
    /// The step's name, as "Migrate14To15".
    const char* step;
    /// 1 when the step is built; an unbuilt step stops any pass that reaches it.
    bool built;
  };

  /// A reader of that file; nothing is read until Decode.
  explicit ZOLDrwParseStandard(ZOLUnicodeString& fileName);
  virtual ~ZOLDrwParseStandard();
  ZOLDrwParseStandard(const ZOLDrwParseStandard&) = delete;
  ZOLDrwParseStandard& operator=(const ZOLDrwParseStandard&) = delete;

  /// Reads the tree, its version and its parent, once; a file that cannot be read gives an empty tree,
  /// and one that fails midway the part read so far (see DecodeFailed).
  void Decode();
  /// 1 when Decode read the file only in part or not at all; level and parent then tell what the part
  /// read says, and Encode and EncodeToVersion write nothing.
  bool DecodeFailed() const { return _DecodeFailed; }
  /// Upgrades to the current level and saves the tree as the input's file name in directory ("." if
  /// null); outputPath gets that path, empty when nothing was decoded or the decode failed. Check
  /// GetOutcome for the result.
  void Encode(const char* directory, ZOLString& outputPath, ZOLDrwParseStandardUpgradeOptions& options);
  /// Upgrades to target (-1: the current level) and saves the tree to outputPath, unless a stage that
  /// should run is not built yet; does nothing before Decode, nor (with a report) after a failed one.
  void EncodeToVersion(int target, ZOLDrwParseStandardUpgradeOptions& options, const char* outputPath);
  /// "ISO", "ANSI", "ASME", "JIS", or any other text of the file (empty without the node).
  ZOLUnicodeString GetParentStandard();
  /// The start level of the tree as decoded, -1 where the tree cannot tell, 0 before Decode.
  int GetVersion();
  /// What the last upgrade pass did.
  const Outcome& GetOutcome() const { return _Outcome; }

  /// The stages of the shipped chain, in order.
  static std::vector<StageInfo> GetStages();
  /// The current data level: 290.
  static int GetCurrentVersion();

  /// Appends line (if not empty) and "\n" if newline is not 0.
  static void AddOutputLine(ZOLUnicodeString& out, const ZOLUnicodeString& line, int newline);
  /// Appends line (if not null) and "\n" if newline is not 0.
  static void AddOutputLine(ZOLUnicodeString& out, const char* line, int newline);
  /// Appends a, b and c (those not null) and "\n" if newline is not 0.
  static void AddOutputLine(ZOLUnicodeString& out, const char* a, const char* b, const char* c, int newline);
  /// Inserts what AddOutputLine would append, at 0 <= position <= length of out; otherwise nothing.
  static void InsertOutputLine(ZOLUnicodeString& out, int position, const ZOLUnicodeString& line, int newline);
  static void InsertOutputLine(ZOLUnicodeString& out, int position, const char* line, int newline);
  static void InsertOutputLine(ZOLUnicodeString& out, int position, const char* a, const char* b, const char* c,
                               int newline);

  /// Parent flags; a mask such as 12 means ISO or JIS.
  static const int ANSI;
  static const int ASME;
  static const int ISO;
  static const int JIS;

protected:
  /// A reader that walks its own chain of stages instead of the shipped one (count stages from stages).
  ZOLDrwParseStandard(ZOLUnicodeString& fileName, const ZOLDrwMigrationStage* stages, int count);

  /// Reads the file into the new parser; 0 success, 1 failure. Derived readers may take the tree elsewhere.
  virtual int DecodeTree(ZOLAnnStandardXMLParser& parser);

  /// Sets outputPath to directory ("." if null), a backslash, the input's name cut at its first ".xml", and ".xml".
  void CreateOutput(const char* directory, ZOLString& outputPath);
  /// One pass over the stages whose levels lie between the start level and target (-1: current).
  void UpgradeVersion(int target, ZOLDrwParseStandardUpgradeOptions& options);
  /// 4 ISO, 8 JIS, 2 ASME, 1 ANSI; 0 with a report for any other parent.
  int GetParentStandardId();
  /// Sets the value at valuePath in every style below stylePath from oldValue to newValue: 1 done or
  /// not for this parent, 0 on a missing or differing value (reported; styles before it stay changed).
  int ChangeStyleValue(const char* stylePath, const char* valuePath, int parentMask,
                       ZOLAnnStandardXMLValue::Type type, const char* oldValue, const char* newValue);
  /// The first flat parameter of that keyword, or null.
  ZOLDrwParseParameter* GetParameter(const ZOLUnicodeString& keyword);

  int _Decoded = 0;
  ZOLUnicodeString _FileName;
  std::vector<ZOLDrwParseParameter*> _Parameters;
  ZOLUnicodeString _ParentStandard;
  int _Version = 0;
  ZOLAnnStandardXMLParser* _Parser = nullptr;

private:
  friend class ZOLDrwMigrationContext;

  const ZOLDrwMigrationStage* _Stages;
  int _StageCount;
  Outcome _Outcome;
  bool _DecodeFailed = false;
};
