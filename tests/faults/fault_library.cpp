// Makes calls of the C library fail, for walk.py. Loaded into a program by LD_PRELOAD, with
// TVX_FAULT=KIND:N:MODE:ERRNO: the N-th call of the kind fails with that errno ("once"), every
// later one does too ("always"), or the N-th transfers half of the bytes ("short"). The first fault
// creates the file TVX_FAULT_MARK.
#include <dirent.h>
#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <iconv.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

char kind[16], mode[16];
long number = -1, count = 0;  // number: -1 before the variable is read, 0 for no fault
int error = 0;

// True if this call of the kind fails. errno is set then.
bool Fails(const char* callKind) {
  if (number < 0) {
    number = 0;
    const char* const wanted = getenv("TVX_FAULT");
    if (wanted == nullptr ||
        sscanf(wanted, "%15[^:]:%ld:%15[^:]:%d", kind, &number, mode, &error) != 4) {
      number = 0;
    }
  }
  if (number == 0 || strcmp(callKind, kind) != 0) return false;
  ++count;
  if (count < number || (count > number && strcmp(mode, "always") != 0)) return false;
  const char* const mark = getenv("TVX_FAULT_MARK");
  if (mark != nullptr && count == number) {
    syscall(SYS_close, syscall(SYS_openat, AT_FDCWD, mark, O_CREAT | O_WRONLY, 0666));
  }
  errno = error;
  return true;
}

bool IsShort() {
  return strcmp(mode, "short") == 0;
}

template <typename Function>
Function* Next(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

extern "C" {

#define WRAP(callKind, Result, name, parameters, arguments, failed) \
  Result name parameters {                                          \
    static auto* const next = Next<Result parameters>(#name);       \
    return Fails(callKind) ? failed : next arguments;               \
  }
WRAP("open", FILE*, fopen, (const char* path, const char* how), (path, how), nullptr)
WRAP("open", FILE*, fopen64, (const char* path, const char* how), (path, how), nullptr)
WRAP("open", DIR*, opendir, (const char* path), (path), nullptr)
WRAP("open", iconv_t, iconv_open, (const char* to, const char* from), (to, from), iconv_t(-1))
WRAP("read", dirent*, readdir, (DIR * folder), (folder), nullptr)
WRAP("read", dirent64*, readdir64, (DIR * folder), (folder), nullptr)
WRAP("sync", int, fsync, (int file), (file), -1)
WRAP("sync", int, fflush, (FILE * file), (file), -1)
WRAP("rename", int, rename, (const char* from, const char* to), (from, to), -1)
WRAP("stat", int, stat, (const char* path, struct stat* status), (path, status), -1)
WRAP("stat", int, lstat, (const char* path, struct stat* status), (path, status), -1)
WRAP("stat", int, fstat, (int file, struct stat* status), (file, status), -1)
WRAP("stat", int, stat64, (const char* path, struct stat64* status), (path, status), -1)
WRAP("stat", int, lstat64, (const char* path, struct stat64* status), (path, status), -1)
WRAP("stat", int, fstat64, (int file, struct stat64* status), (file, status), -1)
WRAP("stat", int, faccessat, (int folder, const char* path, int how, int flags),
     (folder, path, how, flags), -1)
WRAP("stat", ssize_t, readlink, (const char* path, char* text, size_t size), (path, text, size), -1)
WRAP("alloc", void*, malloc, (size_t size), (size), nullptr)
WRAP("alloc", void*, realloc, (void* old, size_t size), (old, size), nullptr)
WRAP("alloc", void*, aligned_alloc, (size_t alignment, size_t size), (alignment, size), nullptr)
#undef WRAP

#define WRAP_OPEN(name, ...)                  \
  va_list rest;                               \
  va_start(rest, flags);                      \
  const mode_t rights = va_arg(rest, mode_t); \
  va_end(rest);                               \
  return Fails("open") ? -1                   \
                       : static_cast<int>(syscall(SYS_openat, __VA_ARGS__, path, flags, rights));
int open(const char* path, int flags, ...) {
  WRAP_OPEN(open, AT_FDCWD)
}
int open64(const char* path, int flags, ...) {
  WRAP_OPEN(open64, AT_FDCWD)
}
int openat(int folder, const char* path, int flags, ...) {
  WRAP_OPEN(openat, folder)
}
int openat64(int folder, const char* path, int flags, ...) {
  WRAP_OPEN(openat64, folder)
}
#undef WRAP_OPEN

// Transfers: a short one passes half of the bytes on.
#define WRAP_TRANSFER(callKind, Result, name, parameters, arguments, failed) \
  Result name parameters {                                                   \
    static auto* const next = Next<Result parameters>(#name);                \
    if (Fails(callKind)) {                                                   \
      if (!IsShort()) return failed;                                         \
      size = (size + 1) / 2;                                                 \
    }                                                                        \
    return next arguments;                                                   \
  }
WRAP_TRANSFER("read", ssize_t, read, (int file, void* to, size_t size), (file, to, size), -1)
WRAP_TRANSFER("read", ssize_t, pread, (int file, void* to, size_t size, off_t at),
              (file, to, size, at), -1)
WRAP_TRANSFER("write", ssize_t, write, (int file, const void* from, size_t size),
              (file, from, size), -1)
WRAP_TRANSFER("write", ssize_t, pwrite, (int file, const void* from, size_t size, off_t at),
              (file, from, size, at), -1)
WRAP_TRANSFER("write", size_t, fwrite, (const void* from, size_t one, size_t size, FILE* file),
              (from, one, size, file), 0)
#undef WRAP_TRANSFER

// The file is closed all the same, as the system does it.
int close(int file) {
  const bool fails = Fails("close");
  const long result = syscall(SYS_close, file);
  if (fails) errno = error;
  return fails ? -1 : static_cast<int>(result);
}
int fclose(FILE* file) {
  static auto* const next = Next<int(FILE*)>("fclose");
  const bool fails = Fails("close");
  const int result = next(file);
  if (fails) errno = error;
  return fails ? EOF : result;
}

}  // extern "C"
