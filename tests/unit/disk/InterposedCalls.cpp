// Interposes the file functions of libc, for this program and its libraries: each goes through the
// current recorder and on to libc. The program's own symbols are found before those of libc.
#undef _FORTIFY_SOURCE // its inline forms would replace the functions defined here

#include "DiskRecorder.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstring>

namespace {

using velorin::disk::activeRecorder;
using velorin::disk::DiskRecorder;

/// What the recorder itself reads is not recorded.
thread_local bool isInside = false;

template <typename Call>
Call* systems(Call*, const char* name) {
    return reinterpret_cast<Call*>(dlsym(RTLD_NEXT, name));
}
#define SYSTEMS(call) systems(&call, #call)

/// `record` gets the recorder and the call to carry out. The caller sees the call's own `errno`.
template <typename Result, typename Record>
Result recorded(const std::function<Result()>& carryOut, const Record& record) {
    DiskRecorder* const recorder = activeRecorder();
    if (!recorder || isInside)
        return carryOut();
    isInside = true;
    int error = errno;
    const Result result = record(*recorder, std::function<Result()>([&] {
        errno = error;
        const Result ownResult = carryOut();
        error = errno;
        return ownResult;
    }));
    isInside = false;
    errno = error;
    return result;
}

int recordedOpen(int folder, const char* path, int flags, const std::function<int()>& carryOut) {
    return recorded<int>(carryOut, [&](DiskRecorder& recorder, const auto& call) {
        return recorder.open(folder, path, flags, call);
    });
}

ssize_t recordedWrite(int number, std::optional<off_t> at,
                      const std::function<ssize_t()>& carryOut) {
    return recorded<ssize_t>(carryOut, [&](DiskRecorder& recorder, const auto& call) {
        return recorder.write(number, at, call);
    });
}

int recordedResize(int number, off_t size, const std::function<int()>& carryOut) {
    return recorded<int>(carryOut, [&](DiskRecorder& recorder, const auto& call) {
        return recorder.resize(number, size, call);
    });
}

int recordedSync(int number, const std::function<int()>& carryOut) {
    return recorded<int>(carryOut, [&](DiskRecorder& recorder, const auto& call) {
        return recorder.sync(number, call);
    });
}

int recordedRename(int fromFolder, const char* from, int toFolder, const char* to,
                   const std::function<int()>& carryOut) {
    return recorded<int>(carryOut, [&](DiskRecorder& recorder, const auto& call) {
        return recorder.rename(fromFolder, from, toFolder, to, call);
    });
}

int recordedLink(int folder, const char* path, const std::function<int()>& carryOut) {
    return recorded<int>(carryOut, [&](DiskRecorder& recorder, const auto& call) {
        return recorder.link(folder, path, call);
    });
}

int recordedRemove(int folder, const char* path, const std::function<int()>& carryOut) {
    return recorded<int>(carryOut, [&](DiskRecorder& recorder, const auto& call) {
        return recorder.remove(folder, path, call);
    });
}

int recordedFolder(int folder, const char* path, const std::function<int()>& carryOut) {
    return recorded<int>(carryOut, [&](DiskRecorder& recorder, const auto& call) {
        return recorder.makeFolder(folder, path, call);
    });
}

std::FILE* recordedFile(const char* path, const char* mode,
                        const std::function<std::FILE*()>& carryOut) {
    std::FILE* file = nullptr;
    recordedOpen(AT_FDCWD, path, std::strchr(mode, 'w') ? O_TRUNC : 0, [&] {
        file = carryOut();
        return file ? fileno(file) : -1;
    });
    return file;
}

/// The third argument of `open`, which exists only if a file may be created.
mode_t modeOf(int flags, va_list arguments) {
    const bool makes = (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
    return makes ? va_arg(arguments, mode_t) : 0;
}

} // namespace

// NOLINTBEGIN: the names and signatures are those of libc.
#define INTERPOSE_OPEN(name)                                                                       \
    int name(const char* path, int flags, ...) {                                                   \
        va_list arguments;                                                                         \
        va_start(arguments, flags);                                                                \
        const mode_t mode = modeOf(flags, arguments);                                              \
        va_end(arguments);                                                                         \
        return recordedOpen(AT_FDCWD, path, flags,                                                 \
                            [&] { return SYSTEMS(name)(path, flags, mode); });                     \
    }
#define INTERPOSE_OPENAT(name)                                                                     \
    int name(int folder, const char* path, int flags, ...) {                                       \
        va_list arguments;                                                                         \
        va_start(arguments, flags);                                                                \
        const mode_t mode = modeOf(flags, arguments);                                              \
        va_end(arguments);                                                                         \
        return recordedOpen(folder, path, flags,                                                   \
                            [&] { return SYSTEMS(name)(folder, path, flags, mode); });             \
    }

extern "C" {

int __open_2(const char* path, int flags);
int __open64_2(const char* path, int flags);

INTERPOSE_OPEN(open)
INTERPOSE_OPEN(open64)
INTERPOSE_OPENAT(openat)
INTERPOSE_OPENAT(openat64)

int __open_2(const char* path, int flags) {
    return recordedOpen(AT_FDCWD, path, flags, [&] { return SYSTEMS(__open_2)(path, flags); });
}
int __open64_2(const char* path, int flags) {
    return recordedOpen(AT_FDCWD, path, flags, [&] { return SYSTEMS(__open64_2)(path, flags); });
}
int creat(const char* path, mode_t mode) {
    return recordedOpen(AT_FDCWD, path, O_TRUNC, [&] { return SYSTEMS(creat)(path, mode); });
}
std::FILE* fopen(const char* path, const char* mode) {
    return recordedFile(path, mode, [&] { return SYSTEMS(fopen)(path, mode); });
}
std::FILE* fopen64(const char* path, const char* mode) {
    return recordedFile(path, mode, [&] { return SYSTEMS(fopen64)(path, mode); });
}

ssize_t write(int number, const void* bytes, size_t count) {
    return recordedWrite(number, {}, [&] { return SYSTEMS(write)(number, bytes, count); });
}
ssize_t writev(int number, const iovec* pieces, int count) {
    return recordedWrite(number, {}, [&] { return SYSTEMS(writev)(number, pieces, count); });
}
ssize_t pwrite(int number, const void* bytes, size_t count, off_t at) {
    return recordedWrite(number, at, [&] { return SYSTEMS(pwrite)(number, bytes, count, at); });
}
ssize_t pwrite64(int number, const void* bytes, size_t count, off64_t at) {
    return recordedWrite(number, at, [&] { return SYSTEMS(pwrite64)(number, bytes, count, at); });
}
ssize_t sendfile(int to, int from, off_t* at, size_t count) noexcept {
    return recordedWrite(to, {}, [&] { return SYSTEMS(sendfile)(to, from, at, count); });
}
ssize_t copy_file_range(int from, off64_t* fromAt, int to, off64_t* toAt, size_t count,
                        unsigned flags) {
    const auto place = toAt ? std::optional<off_t>(*toAt) : std::nullopt;
    return recordedWrite(
        to, place, [&] { return SYSTEMS(copy_file_range)(from, fromAt, to, toAt, count, flags); });
}

int ftruncate(int number, off_t size) noexcept {
    return recordedResize(number, size, [&] { return SYSTEMS(ftruncate)(number, size); });
}
int ftruncate64(int number, off64_t size) noexcept {
    return recordedResize(number, size, [&] { return SYSTEMS(ftruncate64)(number, size); });
}
int fsync(int number) {
    return recordedSync(number, [&] { return SYSTEMS(fsync)(number); });
}
int fdatasync(int number) {
    return recordedSync(number, [&] { return SYSTEMS(fdatasync)(number); });
}

int rename(const char* from, const char* to) noexcept {
    return recordedRename(AT_FDCWD, from, AT_FDCWD, to, [&] { return SYSTEMS(rename)(from, to); });
}
int renameat(int fromFolder, const char* from, int toFolder, const char* to) noexcept {
    return recordedRename(fromFolder, from, toFolder, to,
                          [&] { return SYSTEMS(renameat)(fromFolder, from, toFolder, to); });
}
int renameat2(int fromFolder, const char* from, int toFolder, const char* to,
              unsigned flags) noexcept {
    return recordedRename(fromFolder, from, toFolder, to, [&] {
        return SYSTEMS(renameat2)(fromFolder, from, toFolder, to, flags);
    });
}
int link(const char* from, const char* to) noexcept {
    return recordedLink(AT_FDCWD, to, [&] { return SYSTEMS(link)(from, to); });
}
int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept {
    return recordedLink(toFolder, to,
                        [&] { return SYSTEMS(linkat)(fromFolder, from, toFolder, to, flags); });
}
int unlink(const char* path) noexcept {
    return recordedRemove(AT_FDCWD, path, [&] { return SYSTEMS(unlink)(path); });
}
int unlinkat(int folder, const char* path, int flags) noexcept {
    return recordedRemove(folder, path, [&] { return SYSTEMS(unlinkat)(folder, path, flags); });
}
int remove(const char* path) noexcept {
    return recordedRemove(AT_FDCWD, path, [&] {
        return reinterpret_cast<int (*)(const char*)>(dlsym(RTLD_NEXT, "remove"))(path);
    });
}
int rmdir(const char* path) noexcept {
    return recordedRemove(AT_FDCWD, path, [&] { return SYSTEMS(rmdir)(path); });
}
int mkdir(const char* path, mode_t mode) noexcept {
    return recordedFolder(AT_FDCWD, path, [&] { return SYSTEMS(mkdir)(path, mode); });
}
int mkdirat(int folder, const char* path, mode_t mode) noexcept {
    return recordedFolder(folder, path, [&] { return SYSTEMS(mkdirat)(folder, path, mode); });
}

} // extern "C"
// NOLINTEND
