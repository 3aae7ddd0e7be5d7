// The system's calls that the stream's thread must not make: each is noted and carried out. A
// program's own symbols come before those of the C library, so the libraries are bound to these.
#undef _FORTIFY_SOURCE // its inline forms would take the place of what is defined here

#include "ForbiddenCalls.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <poll.h>
#include <pthread.h>
#include <semaphore.h>
#include <sys/select.h>
#include <sys/uio.h>
#include <time.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>

// NOLINTBEGIN: the names and the forms are the system's.
extern "C" {

// The allocator under names of its own: to look it up would allocate.
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* place, size_t size);
void* __libc_memalign(size_t alignment, size_t size);
void __libc_free(void* place);

void* malloc(size_t size) {
    velorin::host::test::noteCall("malloc");
    return __libc_malloc(size);
}
void* calloc(size_t count, size_t size) {
    velorin::host::test::noteCall("calloc");
    return __libc_calloc(count, size);
}
void* realloc(void* place, size_t size) {
    velorin::host::test::noteCall("realloc");
    return __libc_realloc(place, size);
}
void* memalign(size_t alignment, size_t size) {
    velorin::host::test::noteCall("memalign");
    return __libc_memalign(alignment, size);
}
void* aligned_alloc(size_t alignment, size_t size) {
    velorin::host::test::noteCall("aligned_alloc");
    return __libc_memalign(alignment, size);
}
int posix_memalign(void** place, size_t alignment, size_t size) {
    velorin::host::test::noteCall("posix_memalign");
    *place = __libc_memalign(alignment, size);
    return *place ? 0 : ENOMEM;
}
void free(void* place) {
    if (place)
        velorin::host::test::noteCall("free");
    __libc_free(place);
}

// A call that takes `types` and hands on `values`. It is noted and passed to the next library.
#define INTERPOSE(result, name, types, values, ...)                                                \
    result name types __VA_ARGS__ {                                                                \
        static result(*next) types = nullptr;                                                      \
        velorin::host::test::noteCall(#name);                                                      \
        if (!next)                                                                                 \
            next = reinterpret_cast<result(*) types>(dlsym(RTLD_NEXT, #name));                     \
        return next values;                                                                        \
    }

// Locks and waits for other threads.
INTERPOSE(int, pthread_mutex_lock, (pthread_mutex_t * mutex), (mutex), noexcept)
INTERPOSE(int, pthread_mutex_trylock, (pthread_mutex_t * mutex), (mutex), noexcept)
INTERPOSE(int, pthread_mutex_timedlock, (pthread_mutex_t * mutex, const timespec* end),
          (mutex, end), noexcept)
INTERPOSE(int, pthread_mutex_clocklock,
          (pthread_mutex_t * mutex, clockid_t clock, const timespec* end), (mutex, clock, end),
          noexcept)
INTERPOSE(int, pthread_rwlock_rdlock, (pthread_rwlock_t * lock), (lock), noexcept)
INTERPOSE(int, pthread_rwlock_wrlock, (pthread_rwlock_t * lock), (lock), noexcept)
INTERPOSE(int, pthread_spin_lock, (pthread_spinlock_t * lock), (lock), noexcept)
INTERPOSE(int, pthread_cond_wait, (pthread_cond_t * condition, pthread_mutex_t* mutex),
          (condition, mutex))
INTERPOSE(int, pthread_cond_timedwait,
          (pthread_cond_t * condition, pthread_mutex_t* mutex, const timespec* end),
          (condition, mutex, end))
INTERPOSE(int, pthread_cond_clockwait,
          (pthread_cond_t * condition, pthread_mutex_t* mutex, clockid_t clock,
           const timespec* end),
          (condition, mutex, clock, end))
INTERPOSE(int, pthread_cond_signal, (pthread_cond_t * condition), (condition), noexcept)
INTERPOSE(int, pthread_cond_broadcast, (pthread_cond_t * condition), (condition), noexcept)
INTERPOSE(int, pthread_join, (pthread_t thread, void** result), (thread, result))
INTERPOSE(int, sem_wait, (sem_t * semaphore), (semaphore))
INTERPOSE(int, sem_post, (sem_t * semaphore), (semaphore), noexcept)

// The locks of GLib, which the synthesizer is built on, do not go through those of the system.
INTERPOSE(void, g_mutex_lock, (void* mutex), (mutex))
INTERPOSE(void, g_rec_mutex_lock, (void* mutex), (mutex))
INTERPOSE(void, g_cond_wait, (void* condition, void* mutex), (condition, mutex))

// Files, pipes and standard error.
#define INTERPOSE_OPEN(name, types, values)                                                        \
    int name types {                                                                               \
        static int(*next) types = nullptr;                                                         \
        velorin::host::test::noteCall(#name);                                                      \
        if (!next)                                                                                 \
            next = reinterpret_cast<int(*) types>(dlsym(RTLD_NEXT, #name));                        \
        va_list arguments;                                                                         \
        va_start(arguments, flags);                                                                \
        const bool makes = (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;             \
        const mode_t mode = makes ? va_arg(arguments, mode_t) : 0;                                 \
        va_end(arguments);                                                                         \
        return next values;                                                                        \
    }
INTERPOSE_OPEN(open, (const char* path, int flags, ...), (path, flags, mode))
INTERPOSE_OPEN(open64, (const char* path, int flags, ...), (path, flags, mode))
INTERPOSE_OPEN(openat, (int folder, const char* path, int flags, ...), (folder, path, flags, mode))
INTERPOSE_OPEN(openat64, (int folder, const char* path, int flags, ...),
               (folder, path, flags, mode))
INTERPOSE(int, close, (int number), (number))
INTERPOSE(ssize_t, read, (int number, void* bytes, size_t count), (number, bytes, count))
INTERPOSE(ssize_t, pread, (int number, void* bytes, size_t count, off_t at),
          (number, bytes, count, at))
INTERPOSE(ssize_t, readv, (int number, const iovec* pieces, int count), (number, pieces, count))
INTERPOSE(ssize_t, write, (int number, const void* bytes, size_t count), (number, bytes, count))
INTERPOSE(ssize_t, pwrite, (int number, const void* bytes, size_t count, off_t at),
          (number, bytes, count, at))
INTERPOSE(ssize_t, writev, (int number, const iovec* pieces, int count), (number, pieces, count))
INTERPOSE(int, fsync, (int number), (number))
INTERPOSE(int, fdatasync, (int number), (number))
INTERPOSE(int, rename, (const char* from, const char* to), (from, to), noexcept)
INTERPOSE(int, unlink, (const char* path), (path), noexcept)
INTERPOSE(std::FILE*, fopen, (const char* path, const char* mode), (path, mode))
INTERPOSE(std::FILE*, fopen64, (const char* path, const char* mode), (path, mode))
INTERPOSE(int, fclose, (std::FILE * file), (file))
INTERPOSE(int, fflush, (std::FILE * file), (file))
INTERPOSE(size_t, fread, (void* bytes, size_t size, size_t count, std::FILE* file),
          (bytes, size, count, file))
INTERPOSE(size_t, fwrite, (const void* bytes, size_t size, size_t count, std::FILE* file),
          (bytes, size, count, file))
INTERPOSE(int, fputs, (const char* text, std::FILE* file), (text, file))
INTERPOSE(int, vfprintf, (std::FILE * file, const char* form, va_list arguments),
          (file, form, arguments))
int fprintf(std::FILE* file, const char* form, ...) {
    va_list arguments;
    va_start(arguments, form);
    const int count = vfprintf(file, form, arguments);
    va_end(arguments);
    return count;
}

// Sleeping.
INTERPOSE(int, nanosleep, (const timespec* time, timespec* left), (time, left))
INTERPOSE(int, clock_nanosleep, (clockid_t clock, int flags, const timespec* time, timespec* left),
          (clock, flags, time, left))
INTERPOSE(int, usleep, (useconds_t microseconds), (microseconds))
INTERPOSE(unsigned, sleep, (unsigned seconds), (seconds))
INTERPOSE(int, poll, (pollfd * files, nfds_t count, int milliseconds), (files, count, milliseconds))
INTERPOSE(int, ppoll, (pollfd * files, nfds_t count, const timespec* time, const sigset_t* signals),
          (files, count, time, signals))
INTERPOSE(int, select, (int count, fd_set* in, fd_set* out, fd_set* other, timeval* time),
          (count, in, out, other, time))

} // extern "C"
// NOLINTEND
