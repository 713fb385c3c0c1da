// qelstd: the command line of the standards library.
#include <algorithm>
#include <cstring>
#include <new>
#include <stdexcept>

#include "QelstdOutput.h"
#include "QelstdVerb.h"

namespace {

// Address space kept back for the way out of a failed allocation: the unwinding frees the trees
// built so far, which takes a worklist, and an allocation failing there would end the tool in
// std::terminate instead of with a message. Untouched, it costs no memory.
char* g_reserve = nullptr;

void ReleaseReserveAndFail() {
  delete[] g_reserve;
  g_reserve = nullptr;
  throw std::bad_alloc();
}

// Why an exception ended a verb. The standard object throws these two on a malformed colour.
std::string Why(const std::exception& e) {
  if (dynamic_cast<const std::invalid_argument*>(&e) || dynamic_cast<const std::out_of_range*>(&e))
    return std::string("cannot be read: a value is malformed (") + e.what() + ")";
  return e.what();
}

}  // namespace

int main(int argc, char** argv) {
  g_reserve = new (std::nothrow) char[size_t{64} << 20];
  std::set_new_handler(ReleaseReserveAndFail);
  CLI::App app{"qelstd: read, edit, check and upgrade drafting standards"};
  app.set_version_flag("--version", std::string("qelstd ") + QELSTD_VERSION);
  app.require_subcommand(1);
  int status = qelstd::kDone;
  auto verbs = qelstd::Verbs();
  std::sort(verbs.begin(), verbs.end(), [](const auto& a, const auto& b) { return std::string(a.name) < b.name; });
  for (auto& verb : verbs) verb.setup(app, &status);
  auto subject = [&app] {
    if (!qelstd::Subject().empty()) return qelstd::Subject();
    auto verbsRun = app.get_subcommands();
    return verbsRun.empty() ? std::string("qelstd") : verbsRun.front()->get_name();
  };
  try {
    app.parse(argc, argv);
  } catch (const CLI::CallForHelp& e) {
    status = app.exit(e);
  } catch (const CLI::CallForVersion& e) {
    status = app.exit(e);
  } catch (const CLI::ParseError& e) {
    app.exit(e);
    status = qelstd::kUsage;
  } catch (const std::bad_alloc&) {
    qelstd::Error(subject(), "out of memory");
    status = qelstd::kNotFound;
  } catch (const std::exception& e) {
    qelstd::Error(subject(), Why(e));
    status = qelstd::kNotFound;
  }
  // Help goes through std::cout, which writes into standard output's buffer: one flush covers both.
  // A verb that failed already keeps its own status (diff's 1 means "different", not this).
  if (const int error = qelstd::FinishOutput(stdout)) {
    qelstd::Error("standard output", std::strerror(error));
    if (status == qelstd::kDone) status = qelstd::kNotFound;
  }
  return status;
}
