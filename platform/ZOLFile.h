// Files, directories and the environment.
#pragma once
#include <string>
#include <string_view>
#include <sys/stat.h>

#include "ZOLResult.h"

/// The runtime's stat of path; 0 on success, -1 otherwise.
int ZOLFileStat(const char* path, struct stat* info);
/// The value of an environment variable, or null when it is not set.
const char* ZOLGetEnv(const char* name);

/// An open directory listing.
struct ZOLDirectory;
/// Opens a directory for listing; 0 on success.
int ZOLOpenDirectory(const char* path, ZOLDirectory** dir);
/// The next entry name ("." and ".." included, as the system gives them); 0 on success, not 0 at the end.
int ZOLReadDirectory(ZOLDirectory* dir, std::string& name);
/// Closes a listing; 0 on success.
int ZOLCloseDirectory(ZOLDirectory* dir);

/// Reads a whole file; S_OK, or E_FAIL when it cannot be opened or read.
HRESULT ZOLReadFile(const char* path, std::string& bytes);
/// Writes a whole file through a temporary file beside it, flushed to disk, and a rename, so that
/// readers never see half a file and neither a failure nor a crash leaves less than the old file or
/// the new one. A symbolic link is written through: its target gets the bytes and the link stays.
/// The file keeps the permissions of the file it replaces; a new one gets 0666 less the umask. The
/// umask is never changed. S_OK; E_FAIL with errno set when the bytes could not be put in place
/// (the old file is then as it was) or the directory could not be flushed after the rename (the new
/// file is then in place but might not survive a crash).
HRESULT ZOLWriteFileAtomically(const char* path, std::string_view bytes);
