// Preloaded into the console tool (LD_PRELOAD): counts its calls on files below a folder, and lets
// one of them fail or kills the process in front of it. The descriptors 0 to 2 don't count, and
// nothing that the loader and the C library do for themselves is seen.
//   TARVO_FAULTS_ROOT     the folder
//   TARVO_FAULTS_AT       the number of the call, from 1
//   TARVO_FAULTS_CODE     its errno; 0 kills
//   TARVO_FAULTS_ONWARDS  set: all calls behind it fail likewise
//   TARVO_FAULTS_REPORT   the file for "planted" with the call, "stack", at the exit "calls", and
//                         "background" with the number of a process that goes on
//   TARVO_FAULTS_LOG      set: for each "call", too

#include <dirent.h>
#include <dlfcn.h>
#include <execinfo.h>
#include <fcntl.h>
#include <pthread.h>
#include <sys/auxv.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdarg>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <sstream>
#include <type_traits>

namespace {

std::string_view Order(const char* name) {
  const char* const value = getenv(name);
  return value ? value : "";
}

int seen = 0;

/// Keeps errno as it is: what doesn't fail mustn't change it.
class SameErrno {
 public:
  ~SameErrno() { errno = before_; }

 private:
  int before_ = errno;
};

/// Past the functions below, which would count it.
void Say(const std::string& words) {
  const SameErrno same;
  constexpr int kFlags = O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC;
  const char* const report = Order("TARVO_FAULTS_REPORT").data();
  const long file = syscall(SYS_openat, AT_FDCWD, report, kFlags, 0666);
  const std::string line = words + '\n';
  syscall(SYS_write, file, line.data(), line.size());
  syscall(SYS_close, file);
}

__attribute__((destructor)) void SayCalls() {
  Say("calls " + std::to_string(seen));
}

__attribute__((constructor)) void TellOfBackground() {
  pthread_atfork(nullptr, nullptr, [] { Say("background " + std::to_string(getpid())); });
}

/// Where in the program the call stands, from the inside out, as offsets into its file.
std::string Stack() {
  const auto base = getauxval(AT_PHDR) & ~std::uintptr_t{4095};
  void* frames[64];
  std::ostringstream words;
  words << "stack" << std::hex;
  for (int i = 0, count = backtrace(frames, 64); i < count; ++i) {
    Dl_info place;
    if (!dladdr(frames[i], &place)) continue;
    if (reinterpret_cast<std::uintptr_t>(place.dli_fbase) != base) continue;
    words << ' ' << reinterpret_cast<std::uintptr_t>(frames[i]) - base - 1;
  }
  return words.str();
}

/// The path of a descriptor; empty for those that don't count.
std::string On(int descriptor) {
  const SameErrno same;
  char path[PATH_MAX];
  const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
  const long size = syscall(SYS_readlinkat, AT_FDCWD, link.c_str(), path, sizeof path);
  return {path, size < 0 || descriptor <= 2 ? 0 : static_cast<std::size_t>(size)};
}

std::string On(DIR* stream) {
  return On(dirfd(stream));
}

std::string At(int folder, const char* path) {
  if (!path) return On(folder);
  if (path[0] == '/') return path;
  char here[PATH_MAX] = "";
  if (folder == AT_FDCWD) syscall(SYS_getcwd, here, sizeof here);
  return (folder == AT_FDCWD ? here : On(folder)) + '/' + path;
}

std::string At(const char* path) {
  return At(AT_FDCWD, path);
}

/// Counts a call. True when it is to fail, with errno set.
bool Fails(const char* call, const std::string& path, bool interruptible) {
  static const std::string_view root = Order("TARVO_FAULTS_ROOT");
  static const int at = std::atoi(Order("TARVO_FAULTS_AT").data());
  static const int code = std::atoi(Order("TARVO_FAULTS_CODE").data());
  static const bool onwards = !Order("TARVO_FAULTS_ONWARDS").empty();
  static const bool log = !Order("TARVO_FAULTS_LOG").empty();
  const bool isBelow =
      path.starts_with(root) && (path.size() == root.size() || path[root.size()] == '/');
  if (!isBelow) return false;
  const std::string words = ' ' + std::to_string(++seen) + (interruptible ? " i " : " - ") + call +
                            ' ' + path.substr(root.size());
  if (log) Say("call" + words);
  if (at == 0 || (onwards ? seen < at : seen != at)) return false;
  if (code == EINTR && !interruptible) return false;
  if (seen == at) Say("planted" + words + '\n' + Stack());
  if (code == 0) kill(getpid(), SIGKILL);
  errno = code;
  return true;
}

template <class Result>
Result Failed() {
  if constexpr (std::is_pointer_v<Result>) return nullptr;
  if constexpr (!std::is_pointer_v<Result>) return -1;
}

bool IsLock(int command) {
  return command == F_SETLK || command == F_SETLKW || command == F_OFD_SETLK ||
         command == F_OFD_SETLKW;
}

constexpr bool kEintr = true;
constexpr bool kNever = false;

}  // namespace

#define NEXT(type, name, parameters) \
  static const auto next = reinterpret_cast<type(*) parameters>(dlsym(RTLD_NEXT, #name))

/// A row of the table: result, name, parameters, how they are handed on, the path, and whether the
/// manual names EINTR for the call.
#define CALL(type, name, parameters, arguments, path, interruptible) \
  extern "C" type name parameters {                                  \
    NEXT(type, name, parameters);                                    \
    if (Fails(#name, path, interruptible)) return Failed<type>();    \
    return next arguments;                                           \
  }

/// A failing one closes all the same.
#define CLOSE(name, parameter, interruptible)                   \
  extern "C" int name(parameter opened) {                       \
    NEXT(int, name, (parameter));                               \
    const bool fails = Fails(#name, On(opened), interruptible); \
    const int code = errno;                                     \
    const int result = next(opened);                            \
    if (fails) errno = code;                                    \
    return fails ? -1 : result;                                 \
  }

/// The argument behind the last one that is named, or anything where there is none.
#define MORE(type, last)                \
  va_list rest;                         \
  va_start(rest, last);                 \
  const auto more = va_arg(rest, type); \
  va_end(rest)

#define OPEN(name, parameters, arguments, path)              \
  extern "C" int name parameters {                           \
    NEXT(int, name, parameters);                             \
    MORE(mode_t, flags);                                     \
    return Fails(#name, path, kEintr) ? -1 : next arguments; \
  }

#define FCNTL(name)                                                                        \
  extern "C" int name(int fd, int command, ...) {                                          \
    NEXT(int, name, (int, int, ...));                                                      \
    MORE(void*, command);                                                                  \
    return IsLock(command) && Fails(#name, On(fd), kEintr) ? -1 : next(fd, command, more); \
  }

// clang-format off
OPEN(open,     (const char* a, int flags, ...),        (a, flags, more),    At(a))
OPEN(open64,   (const char* a, int flags, ...),        (a, flags, more),    At(a))
OPEN(openat,   (int d, const char* a, int flags, ...), (d, a, flags, more), At(d, a))
OPEN(openat64, (int d, const char* a, int flags, ...), (d, a, flags, more), At(d, a))
CLOSE(close,    int,  kEintr)
CLOSE(closedir, DIR*, kNever)
FCNTL(fcntl)
FCNTL(fcntl64)
CALL(int, flock, (int fd, int how), (fd, how), On(fd), !(how & LOCK_NB))  // Only one that waits.

using Bytes = const void*;
CALL(ssize_t, read,     (int fd, void* b, size_t n),             (fd, b, n),     On(fd), kEintr)
CALL(ssize_t, pread,    (int fd, void* b, size_t n, off_t p),    (fd, b, n, p),  On(fd), kEintr)
CALL(ssize_t, pread64,  (int fd, void* b, size_t n, off64_t p),  (fd, b, n, p),  On(fd), kEintr)
CALL(ssize_t, write,    (int fd, Bytes b, size_t n),             (fd, b, n),     On(fd), kEintr)
CALL(ssize_t, pwrite,   (int fd, Bytes b, size_t n, off_t p),    (fd, b, n, p),  On(fd), kEintr)
CALL(ssize_t, pwrite64, (int fd, Bytes b, size_t n, off64_t p),  (fd, b, n, p),  On(fd), kEintr)
CALL(ssize_t, copy_file_range, (int a, off64_t* i, int b, off64_t* o, size_t n, unsigned f),
     (a, i, b, o, n, f), On(b), kNever)
CALL(int, ftruncate,    (int fd, off_t n),                       (fd, n),        On(fd), kEintr)
CALL(int, ftruncate64,  (int fd, off64_t n),                     (fd, n),        On(fd), kEintr)
CALL(int, fsync,        (int fd),                                (fd),           On(fd), kEintr)
CALL(int, fdatasync,    (int fd),                                (fd),           On(fd), kEintr)
CALL(int, syncfs,       (int fd),                                (fd),           On(fd), kNever)
CALL(int, sync_file_range, (int fd, off64_t p, off64_t n, unsigned f), (fd, p, n, f),
     On(fd), kNever)

using Path = const char*;
CALL(int, stat,      (Path a, struct stat* s),                 (a, s),       At(a),    kNever)
CALL(int, stat64,    (Path a, struct stat64* s),               (a, s),       At(a),    kNever)
CALL(int, lstat,     (Path a, struct stat* s),                 (a, s),       At(a),    kNever)
CALL(int, lstat64,   (Path a, struct stat64* s),               (a, s),       At(a),    kNever)
CALL(int, fstat,     (int fd, struct stat* s),                 (fd, s),      On(fd),   kNever)
CALL(int, fstat64,   (int fd, struct stat64* s),               (fd, s),      On(fd),   kNever)
CALL(int, fstatat,   (int d, Path a, struct stat* s, int f),   (d, a, s, f), At(d, a), kNever)
CALL(int, fstatat64, (int d, Path a, struct stat64* s, int f), (d, a, s, f), At(d, a), kNever)
CALL(int, statx, (int d, Path a, int f, unsigned m, struct statx* s), (d, a, f, m, s),
     At(d, a), kNever)
CALL(int, access,    (Path a, int m),                          (a, m),       At(a),    kNever)
CALL(int, faccessat, (int d, Path a, int m, int f),            (d, a, m, f), At(d, a), kNever)
CALL(ssize_t, readlink, (Path a, char* b, size_t n),           (a, b, n),    At(a),    kNever)
CALL(char*,   realpath, (Path a, char* b),                     (a, b),       At(a),    kNever)

CALL(DIR*,      opendir,   (Path a),                       (a),             At(a),    kNever)
CALL(DIR*,      fdopendir, (int fd),                       (fd),            On(fd),   kNever)
CALL(dirent*,   readdir,   (DIR* s),                       (s),             On(s),    kNever)
CALL(dirent64*, readdir64, (DIR* s),                       (s),             On(s),    kNever)
CALL(int, mkdir,     (Path a, mode_t m),                   (a, m),          At(a),    kNever)
CALL(int, rmdir,     (Path a),                             (a),             At(a),    kNever)
CALL(int, unlink,    (Path a),                             (a),             At(a),    kNever)
CALL(int, unlinkat,  (int d, Path a, int f),               (d, a, f),       At(d, a), kNever)
CALL(int, rename,    (Path a, Path b),                     (a, b),          At(b),    kNever)
CALL(int, renameat2, (int c, Path a, int d, Path b, unsigned f), (c, a, d, b, f), At(d, b), kNever)
CALL(int, link,      (Path a, Path b),                     (a, b),          At(b),    kNever)
CALL(int, symlink,   (Path a, Path b),                     (a, b),          At(b),    kNever)

using Times = const timespec*;
CALL(int, chmod,     (Path a, mode_t m),                   (a, m),          At(a),    kNever)
CALL(int, fchmod,    (int fd, mode_t m),                   (fd, m),         On(fd),   kNever)
CALL(int, chown,     (Path a, uid_t u, gid_t g),           (a, u, g),       At(a),    kNever)
CALL(int, fchown,    (int fd, uid_t u, gid_t g),           (fd, u, g),      On(fd),   kNever)
CALL(int, utimensat, (int d, Path a, Times t, int f),      (d, a, t, f),    At(d, a), kNever)
CALL(int, futimens,  (int fd, Times t),                    (fd, t),         On(fd),   kNever)
CALL(ssize_t, flistxattr, (int fd, char* b, size_t n),         (fd, b, n),    On(fd), kNever)
CALL(ssize_t, fgetxattr,  (int fd, Path x, void* b, size_t n), (fd, x, b, n), On(fd), kNever)
CALL(int, fsetxattr, (int fd, Path x, Bytes b, size_t n, int f), (fd, x, b, n, f), On(fd), kNever)
// clang-format on

// All runs make the same calls and write the same dates: the time of day stands still, and each
// look at another clock takes a millisecond.

extern "C" time_t time(time_t* result) {
  constexpr time_t kDay = 1'000'000'000;
  if (result) *result = kDay;
  return kDay;
}

extern "C" int clock_gettime(clockid_t clock, timespec* result) {
  NEXT(int, clock_gettime, (clockid_t, timespec*));
  static timespec day{};
  static long looks = 0;
  if (day.tv_sec == 0) next(CLOCK_REALTIME, &day);
  if (clock != CLOCK_REALTIME) ++looks;
  *result = clock == CLOCK_REALTIME ? day : timespec{looks / 1000, looks % 1000 * 1'000'000};
  return 0;
}
