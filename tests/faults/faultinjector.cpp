// Preloaded into a program: one of its calls fails, as it would on a full disk, without memory, or
// on a machine that has run out of descriptors or processes. The environment says which:
//
//   ZERVAN_FAULT      what fails: write (ENOSPC), open (EMFILE), read (EIO), malloc (ENOMEM) or
//                     fork (EAGAIN), each with the functions that are ways to the same thing
//   ZERVAN_FAULT_AT   the how-manieth of these calls, from 1, counted from the start of the program
//   ZERVAN_FAULT_LOG  the file that gets the name of the function that failed, and what it was
//                     called on
//
// Programs that this one starts run undisturbed; a fork of it goes on counting on its own. What the
// C library does inside itself is not seen: the writing of standard output through stdio above all,
// and the spawning inside system(), which is taken as a whole therefore.

#include <dlfcn.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

// The allocator's own entries: dlsym allocates, and could not be asked for them.
extern "C" {
void* __libc_malloc(size_t);
void* __libc_calloc(size_t, size_t);
void* __libc_realloc(void*, size_t);
void* __libc_memalign(size_t, size_t);
}

namespace {

struct Kind {
  std::string_view name;
  int error;
};
constexpr Kind writing{"write", ENOSPC};
constexpr Kind opening{"open", EMFILE};
constexpr Kind reading{"read", EIO};
constexpr Kind allocating{"malloc", ENOMEM};
constexpr Kind forking{"fork", EAGAIN};

std::array<char, 16> chosen{};  // empty: nothing fails
long left = 0;                  // calls up to the one that fails
std::array<char, 4096> log{};

template <std::size_t size>
void keep(std::array<char, size>& place, const char* value) {
  if (value != nullptr) std::strncpy(place.data(), value, size - 1);
}

// Before main, and gone from the environment for the programs that this one starts.
[[gnu::constructor]] void readEnvironment() {
  const char* const at = std::getenv("ZERVAN_FAULT_AT");
  left = at == nullptr ? 0 : std::atol(at);
  keep(log, std::getenv("ZERVAN_FAULT_LOG"));
  keep(chosen, std::getenv("ZERVAN_FAULT"));
  for (const char* const name : {"ZERVAN_FAULT", "ZERVAN_FAULT_AT", "ZERVAN_FAULT_LOG"})
    unsetenv(name);
}

// By system calls: the library's functions are watched, and may allocate.
void note(const char* function, const char* object) {
  const long file = syscall(SYS_openat, AT_FDCWD, log.data(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
  if (file < 0) return;
  for (const char* const text : {function, " ", object, "\n"})
    syscall(SYS_write, file, text, std::strlen(text));
  syscall(SYS_close, file);
}

// Is this the call that fails? errno is set then.
bool fails(const Kind& kind, const char* function, const char* object = "") {
  if (kind.name != chosen.data() || --left != 0) return false;
  note(function, object);
  errno = kind.error;
  return true;
}

bool failsOn(const Kind& kind, const char* function, int descriptor) {
  if (kind.name != chosen.data()) return false;
  std::array<char, 64> link{};
  std::array<char, 4096> name{};
  std::snprintf(link.data(), link.size(), "/proc/self/fd/%d", descriptor);
  if (readlink(link.data(), name.data(), name.size() - 1) < 0) name[0] = '?';
  return fails(kind, function, name.data());
}

// The library's own function, looked for at its first call.
template <class Function>
Function next(const char* name) {
  return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

int modeAmong(int flags, va_list arguments) {
  return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, int) : 0;
}

int openInstead(const char* function, int folder, const char* name, int flags, int mode) {
  if (fails(opening, function, name)) return -1;
  return static_cast<int>(syscall(SYS_openat, folder, name, flags, mode));
}

using Fopen = FILE* (*)(const char*, const char*);

}  // namespace

extern "C" {

// --- write ---

ssize_t write(int file, const void* text, size_t size) {
  return failsOn(writing, "write", file) ? -1 : syscall(SYS_write, file, text, size);
}
ssize_t writev(int file, const iovec* parts, int count) {
  return failsOn(writing, "writev", file) ? -1 : syscall(SYS_writev, file, parts, count);
}
ssize_t pwrite(int file, const void* text, size_t size, off_t at) {
  return failsOn(writing, "pwrite", file) ? -1 : syscall(SYS_pwrite64, file, text, size, at);
}

// --- read ---

ssize_t read(int file, void* text, size_t size) {
  return failsOn(reading, "read", file) ? -1 : syscall(SYS_read, file, text, size);
}
ssize_t readv(int file, const iovec* parts, int count) {
  return failsOn(reading, "readv", file) ? -1 : syscall(SYS_readv, file, parts, count);
}
ssize_t pread(int file, void* text, size_t size, off_t at) {
  return failsOn(reading, "pread", file) ? -1 : syscall(SYS_pread64, file, text, size, at);
}

// --- open ---

int open(const char* name, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const int mode = modeAmong(flags, arguments);
  va_end(arguments);
  return openInstead("open", AT_FDCWD, name, flags, mode);
}
int open64(const char* name, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const int mode = modeAmong(flags, arguments);
  va_end(arguments);
  return openInstead("open64", AT_FDCWD, name, flags, mode);
}
int openat(int folder, const char* name, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const int mode = modeAmong(flags, arguments);
  va_end(arguments);
  return openInstead("openat", folder, name, flags, mode);
}
int openat64(int folder, const char* name, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const int mode = modeAmong(flags, arguments);
  va_end(arguments);
  return openInstead("openat64", folder, name, flags, mode);
}
FILE* fopen(const char* name, const char* mode) {
  static const auto own = next<Fopen>("fopen");
  return fails(opening, "fopen", name) ? nullptr : own(name, mode);
}
FILE* fopen64(const char* name, const char* mode) {
  static const auto own = next<Fopen>("fopen64");
  return fails(opening, "fopen64", name) ? nullptr : own(name, mode);
}

// --- malloc; operator new comes here as well ---

void* malloc(size_t size) noexcept {
  return fails(allocating, "malloc") ? nullptr : __libc_malloc(size);
}
void* calloc(size_t count, size_t size) noexcept {
  return fails(allocating, "calloc") ? nullptr : __libc_calloc(count, size);
}
void* realloc(void* block, size_t size) noexcept {
  return fails(allocating, "realloc") ? nullptr : __libc_realloc(block, size);
}
void* aligned_alloc(size_t alignment, size_t size) noexcept {
  return fails(allocating, "aligned_alloc") ? nullptr : __libc_memalign(alignment, size);
}
void* memalign(size_t alignment, size_t size) noexcept {
  return fails(allocating, "memalign") ? nullptr : __libc_memalign(alignment, size);
}
int posix_memalign(void** block, size_t alignment, size_t size) noexcept {
  if (fails(allocating, "posix_memalign")) return ENOMEM;
  *block = __libc_memalign(alignment, size);
  return *block == nullptr ? ENOMEM : 0;
}

// --- fork ---

pid_t fork() noexcept {
  static const auto own = next<pid_t (*)()>("fork");
  return fails(forking, "fork") ? -1 : own();
}
// A fork with its own memory does all that vfork promises, and can be wrapped.
pid_t vfork() noexcept {
  static const auto own = next<pid_t (*)()>("fork");
  return fails(forking, "vfork") ? -1 : own();
}
int posix_spawn(pid_t* child, const char* path, const posix_spawn_file_actions_t* actions,
                const posix_spawnattr_t* attributes, char* const* argv, char* const* environment) {
  static const auto own = next<decltype(&posix_spawn)>("posix_spawn");
  return fails(forking, "posix_spawn", path)
             ? forking.error
             : own(child, path, actions, attributes, argv, environment);
}
int posix_spawnp(pid_t* child, const char* file, const posix_spawn_file_actions_t* actions,
                 const posix_spawnattr_t* attributes, char* const* argv, char* const* environment) {
  static const auto own = next<decltype(&posix_spawnp)>("posix_spawnp");
  return fails(forking, "posix_spawnp", file)
             ? forking.error
             : own(child, file, actions, attributes, argv, environment);
}
int system(const char* command) {
  static const auto own = next<int (*)(const char*)>("system");
  return fails(forking, "system", command) ? -1 : own(command);
}
FILE* popen(const char* command, const char* mode) {
  static const auto own = next<Fopen>("popen");
  return fails(forking, "popen", command) ? nullptr : own(command, mode);
}

}  // extern "C"
