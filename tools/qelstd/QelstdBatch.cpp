#include "QelstdBatch.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstring>
#include <exception>
#include <fcntl.h>
#include <filesystem>
#include <poll.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "QelstdJson.h"
#include "QelstdOutput.h"
#include "ZOLDrwParseStandard.h"

namespace fs = std::filesystem;

namespace qelstd {

std::string OutputPathOf(const std::string& file, const std::string& directory) {
  std::string name = fs::path(file).filename().string();
  return (fs::path(directory) / (name.substr(0, name.find(".xml")) + ".xml")).string();
}

namespace {

struct Walk {
  const fs::path& outputDirectory;
  struct stat skip;
  bool skipKnown;
  std::vector<BatchItem>& items;

  void Directory(const fs::path& dir, const fs::path& relative) {
    std::error_code ec;
    std::vector<fs::directory_entry> entries;
    for (fs::directory_iterator it(dir, ec), end; !ec && it != end; it.increment(ec)) entries.push_back(*it);
    if (ec) {
      items.push_back({dir.string(), std::string(), "cannot be listed: " + ec.message()});
      return;
    }
    std::sort(entries.begin(), entries.end());
    for (const fs::directory_entry& entry : entries) {
      const fs::path name = entry.path().filename();
      struct stat own;
      if (::lstat(entry.path().c_str(), &own) != 0) continue;
      if (S_ISDIR(own.st_mode)) {
        // Outputs of an earlier run below an input folder are no inputs.
        if (skipKnown && own.st_dev == skip.st_dev && own.st_ino == skip.st_ino) continue;
        Directory(entry.path(), relative / name);
        continue;
      }
      // A link to a folder is not followed (it may loop); a dangling link is taken, and told as unreadable.
      struct stat target;
      if (S_ISLNK(own.st_mode) && ::stat(entry.path().c_str(), &target) == 0 && S_ISDIR(target.st_mode)) continue;
      // Flat legacy files have no name of their own: they are told by their first keyword.
      const bool xml = name.extension() == ".xml";
      if (!xml && !ZOLDrwParseStandard::IsFlatFile(ZOLUnicodeString(entry.path().string()))) continue;
      items.push_back({entry.path().string(), OutputPathOf(entry.path().string(), (outputDirectory / relative).string()),
                       std::string()});
    }
  }
};

}  // namespace

std::vector<BatchItem> CollectBatch(const std::vector<std::string>& paths, const std::string& directory) {
  const fs::path outputDirectory(directory);
  std::vector<BatchItem> items;
  Walk walk{outputDirectory, {}, false, items};
  walk.skipKnown = ::stat(directory.c_str(), &walk.skip) == 0;
  for (const std::string& path : paths) {
    struct stat info;
    if (::stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode)) walk.Directory(path, fs::path());
    else items.push_back({path, OutputPathOf(path, directory), std::string()});
  }
  std::map<std::string, const BatchItem*> byOutput;
  for (BatchItem& item : items) {
    if (!item.refused.empty()) continue;
    auto [at, added] = byOutput.emplace(fs::path(item.output).lexically_normal().string(), &item);
    if (!added) item.refused = "its output " + item.output + " is that of " + at->second->input + " already";
  }
  return items;
}

nlohmann::ordered_json ToJson(const BatchResult& r) {
  nlohmann::ordered_json j;
  j["input"] = r.input;
  j["output"] = r.output;
  j["parent"] = r.parent;
  j["startLevel"] = r.startLevel;
  j["stagesRun"] = r.stagesRun;
  j["levelReached"] = r.levelReached;
  j["result"] = r.result;
  j["reason"] = r.reason;
  j["reports"] = r.reports;
  j["milliseconds"] = r.milliseconds;
  return j;
}

bool FromJson(const nlohmann::json& j, BatchResult& r) {
  try {
    r.input = j.at("input");
    r.output = j.at("output");
    r.parent = j.at("parent");
    r.startLevel = j.at("startLevel");
    r.stagesRun = j.at("stagesRun");
    r.levelReached = j.at("levelReached");
    r.result = j.at("result");
    r.reason = j.at("reason");
    r.reports = j.at("reports").get<std::vector<std::string>>();
    r.milliseconds = j.at("milliseconds");
    return true;
  } catch (const nlohmann::json::exception&) {
    return false;
  }
}

// ---------------------------------------------------------------- workers

// Workers are processes, not threads: the tool collects a file's reports through the library's report
// hook, which is one per process, and the library's caches take no lock. A process per worker also
// keeps a crash on one file from ending the others.
namespace {

bool WriteAll(int fd, const void* data, size_t size) {
  const char* p = static_cast<const char*>(data);
  while (size > 0) {
    const ssize_t n = ::write(fd, p, size);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return false;
    p += n;
    size -= static_cast<size_t>(n);
  }
  return true;
}

// 1 read whole, 0 at the end of the pipe before any byte, -1 on an error or a cut message.
int ReadAll(int fd, void* data, size_t size) {
  char* p = static_cast<char*>(data);
  size_t got = 0;
  while (got < size) {
    const ssize_t n = ::read(fd, p + got, size - got);
    if (n < 0 && errno == EINTR) continue;
    if (n < 0) return -1;
    if (n == 0) return got == 0 ? 0 : -1;
    got += static_cast<size_t>(n);
  }
  return 1;
}

struct Worker {
  pid_t pid = -1;
  int command = -1;  // indexes of items to the worker
  int results = -1;  // length-prefixed result records back
  long current = -1;  // the index it is on
  std::string received;
};

// Set by an interrupt of the run: no file is handed out after it, and the files in hand are finished.
volatile std::sig_atomic_t g_interrupted = 0;

void Interrupt(int) { g_interrupted = 1; }

[[noreturn]] void WorkerLoop(int command, int results, const std::vector<BatchItem>& items,
                             const std::function<BatchResult(const BatchItem&)>& work) {
  std::signal(SIGPIPE, SIG_DFL);
  // An interrupt of the terminal reaches every worker too: each finishes its file, so that no
  // temporary file is left behind, and then sees its command pipe closed by the parent.
  std::signal(SIGINT, SIG_IGN);
  std::signal(SIGTERM, SIG_IGN);
  for (uint64_t index; ReadAll(command, &index, sizeof index) == 1 && index < items.size();) {
    BatchResult r;
    try {
      r = work(items[index]);
    } catch (const std::exception& e) {
      r.input = items[index].input;
      r.output = items[index].output;
      r.result = "failed";
      r.reason = std::string("cannot be upgraded: ") + e.what();
    }
    const std::string text = JsonText(ToJson(r));
    const uint64_t size = text.size();
    if (!WriteAll(results, &size, sizeof size) || !WriteAll(results, text.data(), text.size())) ::_exit(1);
  }
  // No exit handlers and no flush: the buffers and statics are the parent's.
  ::_exit(0);
}

bool StartWorker(std::vector<Worker>& workers, const std::vector<BatchItem>& items,
                 const std::function<BatchResult(const BatchItem&)>& work) {
  int toWorker[2], fromWorker[2];
  if (::pipe2(toWorker, O_CLOEXEC) != 0) return false;
  if (::pipe2(fromWorker, O_CLOEXEC) != 0) {
    ::close(toWorker[0]), ::close(toWorker[1]);
    return false;
  }
  // What is buffered now would be written once by each process otherwise.
  std::fflush(nullptr);
  const pid_t pid = ::fork();
  if (pid == 0) {
    ::close(toWorker[1]);
    ::close(fromWorker[0]);
    // The other workers' pipes, so that a worker sees the end of its own when the parent goes.
    for (const Worker& w : workers) ::close(w.command), ::close(w.results);
    WorkerLoop(toWorker[0], fromWorker[1], items, work);
  }
  ::close(toWorker[0]);
  ::close(fromWorker[1]);
  if (pid < 0) {
    ::close(toWorker[1]), ::close(fromWorker[0]);
    return false;
  }
  Worker w;
  w.pid = pid;
  w.command = toWorker[1];
  w.results = fromWorker[0];
  workers.push_back(std::move(w));
  return true;
}

// Gives the worker the next item, or closes its command pipe when there is none, so that it exits.
void Feed(Worker& w, size_t& next, size_t count) {
  if (next < count && w.command >= 0 && !g_interrupted) {
    const uint64_t index = next;
    if (WriteAll(w.command, &index, sizeof index)) {
      w.current = static_cast<long>(next++);
      return;
    }
  }
  if (w.command >= 0) ::close(w.command);
  w.command = -1;
}

std::string HowItEnded(int status) {
  if (WIFSIGNALED(status)) return std::string("signal ") + std::to_string(WTERMSIG(status)) + " (" + strsignal(WTERMSIG(status)) + ")";
  return "exit status " + std::to_string(WEXITSTATUS(status));
}

}  // namespace

void RunInWorkers(const std::vector<BatchItem>& items, int jobs, const std::function<BatchResult(const BatchItem&)>& work,
                  const std::function<void(size_t index, BatchResult&& result)>& done) {
  // A worker that died must not end this process when it is handed its next file.
  struct sigaction ignore {}, previous {}, interrupt {}, previousInt {}, previousTerm {};
  ignore.sa_handler = SIG_IGN;
  ::sigaction(SIGPIPE, &ignore, &previous);
  // Without SA_RESTART, so that the wait for results wakes up and stops handing out files.
  interrupt.sa_handler = Interrupt;
  g_interrupted = 0;
  ::sigaction(SIGINT, &interrupt, &previousInt);
  ::sigaction(SIGTERM, &interrupt, &previousTerm);
  auto failed = [&items](size_t index, std::string reason) {
    BatchResult r;
    r.input = items[index].input;
    r.output = items[index].output;
    r.result = "failed";
    r.reason = std::move(reason);
    return r;
  };
  std::vector<Worker> workers;
  size_t next = 0;
  const size_t wanted = std::min(items.size(), static_cast<size_t>(std::max(jobs, 1)));
  while (workers.size() < wanted && StartWorker(workers, items, work)) Feed(workers.back(), next, items.size());
  // With no worker at all, this process does the work itself.
  if (workers.empty())
    for (; next < items.size() && !g_interrupted; ++next) done(next, work(items[next]));

  std::vector<pollfd> fds;
  while (!workers.empty()) {
    fds.clear();
    for (const Worker& w : workers) fds.push_back({w.results, POLLIN, 0});
    if (::poll(fds.data(), fds.size(), -1) < 0) {
      if (errno == EINTR) continue;
      break;
    }
    for (size_t i = workers.size(); i-- > 0;) {
      if (!fds[i].revents) continue;
      Worker& w = workers[i];
      char buffer[1 << 14];
      const ssize_t n = ::read(w.results, buffer, sizeof buffer);
      if (n < 0 && errno == EINTR) continue;
      if (n > 0) {
        w.received.append(buffer, static_cast<size_t>(n));
        for (uint64_t size; w.received.size() >= sizeof size;) {
          std::memcpy(&size, w.received.data(), sizeof size);
          if (w.received.size() < sizeof size + size || w.current < 0) break;
          const size_t index = static_cast<size_t>(w.current);
          BatchResult r;
          nlohmann::json record = nlohmann::json::parse(w.received.begin() + sizeof size,
                                                        w.received.begin() + static_cast<long>(sizeof size + size), nullptr, false);
          if (!FromJson(record, r)) r = failed(index, "the worker's record of it cannot be read");
          w.received.erase(0, sizeof size + size);
          w.current = -1;
          Feed(w, next, items.size());
          done(index, std::move(r));
        }
        continue;
      }
      // The end of its pipe: the worker is gone, done or dead.
      int status = 0;
      while (::waitpid(w.pid, &status, 0) < 0 && errno == EINTR) {
      }
      const long current = w.current;
      if (w.command >= 0) ::close(w.command);
      ::close(w.results);
      workers.erase(workers.begin() + static_cast<long>(i));
      if (current >= 0) {
        done(static_cast<size_t>(current), failed(static_cast<size_t>(current),
                                                  "the upgrade ended abnormally (" + HowItEnded(status) + ")"));
        if (next < items.size() && !g_interrupted && StartWorker(workers, items, work))
          Feed(workers.back(), next, items.size());
      }
      break;  // fds no longer matches workers
    }
    // Workers waiting for a file after an interrupt are told there is none.
    if (g_interrupted)
      for (Worker& w : workers)
        if (w.current < 0) Feed(w, next, items.size());
  }
  // Whatever no worker could be started for is still done, here.
  for (; next < items.size() && !g_interrupted; ++next) done(next, work(items[next]));
  for (; next < items.size(); ++next) done(next, failed(next, kBatchInterrupted));
  ::sigaction(SIGTERM, &previousTerm, nullptr);
  ::sigaction(SIGINT, &previousInt, nullptr);
  ::sigaction(SIGPIPE, &previous, nullptr);
}

// ---------------------------------------------------------------- progress and summary

BatchProgress::BatchProgress(size_t total, std::FILE* out, bool show) : _total(total), _out(out), _show(show) {}

void BatchProgress::Add(const BatchResult& r) {
  ++_done;
  if (r.Failed()) ++_failed;
  else ++_passed[r.startLevel][r.parent];
  Draw(_done == _total);
}

void BatchProgress::Note(const std::string& line) {
  Clear();
  std::fprintf(_out, "%s\n", line.c_str());
  Draw(true);
}

void BatchProgress::Finish() { Clear(); }

void BatchProgress::Clear() {
  if (!_lineShown) return;
  std::fputs("\r\033[K", _out);
  std::fflush(_out);
  _lineShown = false;
}

void BatchProgress::Draw(bool force) {
  if (!_show) return;
  const auto now = std::chrono::steady_clock::now();
  if (!force && now - _drawn < std::chrono::milliseconds(100)) return;
  _drawn = now;
  constexpr int kWidth = 30;
  const int filled = _total ? static_cast<int>(kWidth * _done / _total) : kWidth;
  const double seconds = std::chrono::duration<double>(now - _start).count();
  std::fprintf(_out, "\r\033[K[%s%s] %zu/%zu done, %zu failed, %.1f files/s", std::string(filled, '#').c_str(),
               std::string(kWidth - filled, '.').c_str(), _done, _total, _failed, seconds > 0 ? _done / seconds : 0.0);
  std::fflush(_out);
  _lineShown = true;
}

void BatchProgress::PrintSummary(std::FILE* out) const {
  // The four parents in their usual order, then any other text a file had.
  std::vector<std::string> parents = {"ISO", "ANSI", "ASME", "JIS"};
  for (const auto& [level, byParent] : _passed)
    for (const auto& [parent, count] : byParent)
      if (std::find(parents.begin(), parents.end(), parent) == parents.end()) parents.push_back(parent);
  Printf(out, "%-12s", "start level");
  for (const std::string& p : parents) Printf(out, " %6s", p.c_str());
  Printf(out, " %6s\n", "total");
  std::map<std::string, size_t> columns;
  for (const auto& [level, byParent] : _passed) {
    Printf(out, "%12d", level);
    size_t row = 0;
    for (const std::string& p : parents) {
      const auto at = byParent.find(p);
      const size_t count = at == byParent.end() ? 0 : at->second;
      Printf(out, " %6zu", count);
      row += count;
      columns[p] += count;
    }
    Printf(out, " %6zu\n", row);
  }
  Printf(out, "%-12s", "total");
  for (const std::string& p : parents) Printf(out, " %6zu", columns[p]);
  Printf(out, " %6zu\n", _done - _failed);
  const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - _start).count();
  Printf(out, "%zu of %zu files went through, %zu failed, in %.1f s\n", _done - _failed, _total, _failed, seconds);
}

}  // namespace qelstd
