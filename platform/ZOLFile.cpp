#include "ZOLFile.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

struct ZOLDirectory {
  DIR* handle;
};

int ZOLFileStat(const char* path, struct stat* info) {
  if (!path || !info) return -1;
  return ::stat(path, info) == 0 ? 0 : -1;
}

const char* ZOLGetEnv(const char* name) { return name ? std::getenv(name) : nullptr; }

int ZOLOpenDirectory(const char* path, ZOLDirectory** dir) {
  if (!path || !dir) return -1;
  DIR* handle = ::opendir(path);
  if (!handle) return -1;
  *dir = new ZOLDirectory{handle};
  return 0;
}

int ZOLReadDirectory(ZOLDirectory* dir, std::string& name) {
  if (!dir || !dir->handle) return -1;
  struct dirent* entry = ::readdir(dir->handle);
  if (!entry) return 1;
  name = entry->d_name;
  return 0;
}

int ZOLCloseDirectory(ZOLDirectory* dir) {
  if (!dir) return -1;
  int rc = dir->handle ? ::closedir(dir->handle) : 0;
  delete dir;
  return rc == 0 ? 0 : -1;
}

HRESULT ZOLReadFile(const char* path, std::string& bytes) {
  if (!path) return E_FAIL;
  FILE* f = std::fopen(path, "rb");
  if (!f) return E_FAIL;
  std::string out;
  char buf[1 << 16];
  size_t n;
  while ((n = std::fread(buf, 1, sizeof buf, f)) > 0) out.append(buf, n);
  bool failed = std::ferror(f) != 0;
  std::fclose(f);
  if (failed) return E_FAIL;
  bytes = std::move(out);
  return S_OK;
}

namespace {

// Links to links are followed this far, as the kernel follows them.
constexpr int kMaxLinks = 40;

std::string DirectoryOf(const std::string& path) {
  size_t slash = path.rfind('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

// The file that path names once its symbolic links are followed; a dangling link gives the path
// it points to, which the write then creates. False (errno set) on a loop of links.
bool FollowLinks(std::string& path) {
  for (int hop = 0; hop < kMaxLinks; ++hop) {
    struct stat info;
    if (::lstat(path.c_str(), &info) != 0 || !S_ISLNK(info.st_mode)) return true;
    std::string target(static_cast<size_t>(info.st_size > 0 ? info.st_size : 256) + 1, '\0');
    ssize_t n;
    while ((n = ::readlink(path.c_str(), target.data(), target.size())) >= static_cast<ssize_t>(target.size()))
      target.resize(target.size() * 2);
    if (n <= 0) {
      if (n == 0) errno = ENOENT;
      return false;
    }
    target.resize(static_cast<size_t>(n));
    path = target.front() == '/' ? target : DirectoryOf(path) + "/" + target;
  }
  errno = ELOOP;
  return false;
}

// The process's umask as the kernel tells it; reading it through umask() would change it for a
// moment, for every thread of the host application.
bool ReadUmask(mode_t& mask) {
  FILE* f = std::fopen("/proc/self/status", "re");
  if (!f) return false;
  char line[256];
  bool found = false;
  while (!found && std::fgets(line, sizeof line, f)) {
    unsigned value = 0;
    if (std::sscanf(line, "Umask: %o", &value) == 1) {
      mask = static_cast<mode_t>(value & 0777);
      found = true;
    }
  }
  std::fclose(f);
  return found;
}

bool WriteAll(int fd, std::string_view bytes) {
  const char* p = bytes.data();
  size_t left = bytes.size();
  while (left > 0) {
    ssize_t w = ::write(fd, p, left);
    if (w < 0 && errno == EINTR) continue;
    if (w <= 0) {
      if (w == 0) errno = EIO;
      return false;
    }
    p += w;
    left -= static_cast<size_t>(w);
  }
  return true;
}

// Makes a rename in directory durable. A file system that cannot flush a directory says EINVAL:
// there is nothing more to do there.
bool SyncDirectory(const std::string& directory) {
  int fd = ::open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd < 0) return false;
  bool ok = ::fsync(fd) == 0 || errno == EINVAL;
  int saved = errno;
  ::close(fd);
  errno = saved;
  return ok;
}

}  // namespace

HRESULT ZOLWriteFileAtomically(const char* path, std::string_view bytes) {
  if (!path || !*path) {
    errno = EINVAL;
    return E_FAIL;
  }
  std::string target = path;
  if (!FollowLinks(target)) return E_FAIL;
  struct stat old;
  bool replacing = ::stat(target.c_str(), &old) == 0;
  // Renaming over a directory fails anyway; over a device or a pipe it would replace the node.
  if (replacing && !S_ISREG(old.st_mode)) {
    errno = S_ISDIR(old.st_mode) ? EISDIR : EINVAL;
    return E_FAIL;
  }
  mode_t mask = 022;
  mode_t mode = replacing ? (old.st_mode & 0777) : ReadUmask(mask) ? (0666 & ~mask) : 0644;

  std::string temp = target + ".tmpXXXXXX";
  int fd = ::mkostemp(temp.data(), O_CLOEXEC);
  if (fd < 0) return E_FAIL;
  // Best effort: only a privileged process may give the file to another owner.
  if (replacing && (old.st_uid != ::geteuid() || old.st_gid != ::getegid())) {
    [[maybe_unused]] int owned = ::fchown(fd, old.st_uid, old.st_gid);
  }
  // mkstemp made the file 0600; fchmod alone sets the mode, whatever the umask.
  bool ok = ::fchmod(fd, mode) == 0 && WriteAll(fd, bytes) && ::fsync(fd) == 0;
  int saved = errno;
  if (::close(fd) != 0 && ok) {
    ok = false;
    saved = errno;
  }
  if (ok && ::rename(temp.c_str(), target.c_str()) != 0) {
    ok = false;
    saved = errno;
  }
  if (!ok) {
    ::unlink(temp.c_str());
    errno = saved;
    return E_FAIL;
  }
  return SyncDirectory(DirectoryOf(target)) ? S_OK : E_FAIL;
}
