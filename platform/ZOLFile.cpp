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

HRESULT ZOLWriteFileAtomically(const char* path, std::string_view bytes) {
  if (!path || !*path) return E_FAIL;
  std::string temp = std::string(path) + ".tmpXXXXXX";
  int fd = ::mkstemp(temp.data());
  if (fd < 0) return E_FAIL;
  const char* p = bytes.data();
  size_t left = bytes.size();
  bool ok = true;
  while (left > 0) {
    ssize_t w = ::write(fd, p, left);
    if (w < 0 && errno == EINTR) continue;
    if (w <= 0) { ok = false; break; }
    p += w;
    left -= static_cast<size_t>(w);
  }
  // mkstemp makes the file 0600; a standard file is an ordinary document.
  if (ok) {
    mode_t mask = ::umask(0);
    ::umask(mask);
    ok = ::fchmod(fd, 0666 & ~mask) == 0;
  }
  ok = ::close(fd) == 0 && ok;
  if (!ok || ::rename(temp.c_str(), path) != 0) {
    ::unlink(temp.c_str());
    return E_FAIL;
  }
  return S_OK;
}
