// SPDX-License-Identifier: MIT
// A library to be loaded before all others, which lets one call to the system fail, break off or
// end the process: see tests/faults/faults.h.
#include "tests/faults/faults.h"

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

struct Kind {
    const char *name;
    int error;        ///< 0: the call itself works
    bool halves;      ///< half of a write works, all writes behind it find the disk full
    bool lasts;       ///< all calls behind it fail, too
    bool kills;       ///< the process ends before the call, or within the write
    bool othersWrite; ///< before the call, or within the write
};

constexpr Kind kinds[] = {
    {"full", ENOSPC, false, false, false, false},
    {"broken", EIO, false, false, false, false},
    {"denied", EACCES, false, false, false, false},
    {"readonly", EROFS, false, false, false, false},
    {"toomany", EMFILE, false, false, false, false},
    {"half", 0, true, false, false, false},
    {"gone", EIO, false, true, false, false},
    {"kill", 0, false, false, true, false},
    {"killhalf", 0, true, false, true, false},
    {"others", 0, false, false, false, true},
    {"othershalf", 0, true, false, false, true},
};

const Kind *kind = nullptr;
int failing = 0;
const char *room = nullptr;
const char *othersFile = nullptr;
int calls = 0;
bool counting = false;
bool full = false;  ///< a disk that became full stays full
char names[16'384]; ///< of the calls so far

/// The system's own function.
template <typename Function>
Function *own(const char *name)
{
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

void strikeBefore()
{
    if (kind->othersWrite) {
        const int file = own<int(const char *, int, ...)>("open")(othersFile, O_WRONLY | O_APPEND);
        const size_t size = std::strlen(faultsOthersLine);
        if (file < 0 ||
            own<ssize_t(int, const void *, size_t)>("write")(file, faultsOthersLine, size) < 0) {
            std::abort();
        }
        own<int(int)>("close")(file);
    }
    if (kind->kills) {
        std::raise(SIGKILL);
    }
}

void count(const char *name)
{
    ++calls;
    std::strncat(names, name, sizeof names - std::strlen(names) - 2);
    std::strcat(names, " ");
}

/// Whether the call that is about to be made is to fail; errno is set then.
bool fails(const char *name)
{
    if (!counting) {
        return false;
    }
    count(name);
    if (calls == failing && kind != nullptr) {
        strikeBefore();
    }
    if (kind == nullptr || kind->error == 0 ||
        !(calls == failing || (kind->lasts && calls > failing))) {
        return false;
    }
    errno = kind->error;
    return true;
}

mode_t modeOf(int flags, std::va_list arguments)
{
    return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
}

} // namespace

extern "C" {

void faultsBegin(int call, const char *name, const char *folder, const char *file)
{
    calls = 0;
    names[0] = '\0';
    failing = call;
    room = folder;
    othersFile = file;
    kind = nullptr;
    for (const Kind &candidate : kinds) {
        if (std::strcmp(candidate.name, name) == 0) {
            kind = &candidate;
        }
    }
    counting = true;
}

const char *faultsEnd()
{
    counting = false;
    full = false;
    return names;
}

#define OPEN(NAME)                                                                                 \
    int NAME(const char *path, int flags, ...)                                                     \
    {                                                                                              \
        std::va_list arguments;                                                                    \
        va_start(arguments, flags);                                                                \
        const mode_t mode = modeOf(flags, arguments);                                              \
        va_end(arguments);                                                                         \
        return fails(#NAME) ? -1 : own<int(const char *, int, ...)>(#NAME)(path, flags, mode);     \
    }
#define CALL(RESULT, FAILED, NAME, PARAMETERS, ...)                                                \
    RESULT NAME PARAMETERS noexcept(noexcept(::NAME(__VA_ARGS__)))                                 \
    {                                                                                              \
        return fails(#NAME) ? (FAILED) : own<RESULT PARAMETERS>(#NAME)(__VA_ARGS__);               \
    }

OPEN(open)
OPEN(open64)
CALL(ssize_t, -1, read, (int file, void *bytes, size_t count), file, bytes, count)
CALL(ssize_t, -1, pread, (int file, void *bytes, size_t count, off_t at), file, bytes, count, at)
CALL(int, -1, flock, (int file, int operation), file, operation)
CALL(int, -1, ftruncate, (int file, off_t length), file, length)
CALL(int, -1, rename, (const char *from, const char *to), from, to)
CALL(int, -1, link, (const char *from, const char *to), from, to)
CALL(int, -1, unlink, (const char *path), path)
CALL(int, -1, fchmod, (int file, mode_t mode), file, mode)
CALL(int, -1, access, (const char *path, int mode), path, mode)
CALL(int, -1, stat, (const char *path, struct stat *info), path, info)
CALL(int, -1, lstat, (const char *path, struct stat *info), path, info)
CALL(int, -1, fstat, (int file, struct stat *info), file, info)
CALL(int, -1, statx, (int folder, const char *path, int flags, unsigned mask, struct statx *info),
     folder, path, flags, mask, info)
CALL(DIR *, nullptr, opendir, (const char *path), path)
CALL(DIR *, nullptr, fdopendir, (int folder), folder)
CALL(dirent *, nullptr, readdir, (DIR * folder), folder)
CALL(dirent64 *, nullptr, readdir64, (DIR * folder), folder)

/// No folder is made outside of the room: nothing goes to the real trash.
int mkdir(const char *path, mode_t mode) noexcept
{
    if (counting && std::strncmp(path, room, std::strlen(room)) != 0) {
        errno = EACCES;
        return -1;
    }
    return fails("mkdir") ? -1 : own<int(const char *, mode_t)>("mkdir")(path, mode);
}

/// While calls are counted the disk is spared: no power is lost here.
int fsync(int file)
{
    return fails("fsync") ? -1 : counting ? 0 : own<int(int)>("fsync")(file);
}

ssize_t write(int file, const void *bytes, size_t count)
{
    const auto next = own<ssize_t(int, const void *, size_t)>("write");
    if (counting && calls + 1 == failing && kind != nullptr && kind->halves) {
        const ssize_t written = next(file, bytes, count / 2);
        full = true;
        fails("write");
        return written;
    }
    if (full) {
        errno = ENOSPC;
        return -1;
    }
    return fails("write") ? -1 : next(file, bytes, count);
}

/// What fails at closing has closed all the same.
int close(int file)
{
    const bool failed = fails("close");
    const int error = errno;
    const int result = own<int(int)>("close")(file);
    if (failed) {
        errno = error;
    }
    return failed ? -1 : result;
}

} // extern "C"
