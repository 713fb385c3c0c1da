// qelstd: the command line of the standards library.
#include <algorithm>

#include "QelstdVerb.h"

int main(int argc, char** argv) {
  CLI::App app{"qelstd: read, edit, check and upgrade drafting standards"};
  app.set_version_flag("--version", std::string("qelstd ") + QELSTD_VERSION);
  app.require_subcommand(1);
  int status = qelstd::kDone;
  auto verbs = qelstd::Verbs();
  std::sort(verbs.begin(), verbs.end(), [](const auto& a, const auto& b) { return std::string(a.name) < b.name; });
  for (auto& verb : verbs) verb.setup(app, &status);
  try {
    app.parse(argc, argv);
  } catch (const CLI::CallForHelp& e) {
    return app.exit(e);
  } catch (const CLI::CallForVersion& e) {
    return app.exit(e);
  } catch (const CLI::ParseError& e) {
    app.exit(e);
    return qelstd::kUsage;
  }
  return status;
}
