// A library that is loaded before the C library and lets one call of a program fail.
//
//     FAIL_AT=N         the call that fails, counted from 1; 0 or empty: none
//     FAIL_WITH=WORD    EIO, ENOSPC or ENOMEM for calls on files, SHORT for reads and writes that come short,
//                       MEMORY for allocations of the program itself
//     FAIL_COUNT=FILE   at the end, one line for each counted call: the place in the program that made it

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <link.h>
#include <new>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/syscall.h>
#include <sys/vfs.h>
#include <unistd.h>

namespace
{

enum class Kind { None, Error, Short, Memory };

constexpr std::size_t MostSites = 4'000'000;

struct Plan
{
    long at = 0;
    Kind kind = Kind::None;
    int code = 0;
    const char *countFile = nullptr;
    std::uintptr_t programStart = 0;
    std::uintptr_t programEnd = 0;
};

Plan plan;
std::atomic<long> calls{0};
std::atomic<bool> isInMain{false}; // an error before main() can be reported to nobody
int (*programsMain)(int, char **, char **) = nullptr;

int ownMain(int count, char **words, char **environment)
{
    isInMain = true;
    return programsMain(count, words, environment);
}

std::uint32_t *sites = nullptr; // offset in the program of each call's place

int noteProgram(dl_phdr_info *info, std::size_t, void *)
{
    if (info->dlpi_name[0] != '\0')
        return 0;
    plan.programStart = info->dlpi_addr;
    for (int i = 0; i < info->dlpi_phnum; ++i) {
        const auto &part = info->dlpi_phdr[i];
        if (part.p_type == PT_LOAD)
            plan.programEnd = info->dlpi_addr + part.p_vaddr + part.p_memsz;
    }
    return 1;
}

__attribute__((constructor)) void start()
{
    const char *with = std::getenv("FAIL_WITH");
    const char *at = std::getenv("FAIL_AT");
    if (!with)
        return;
    dl_iterate_phdr(noteProgram, nullptr);
    plan.countFile = std::getenv("FAIL_COUNT");
    if (plan.countFile)
        sites =
            static_cast<std::uint32_t *>(::mmap(nullptr, MostSites * sizeof *sites, PROT_READ | PROT_WRITE,
                                                MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0));
    plan.code = std::strcmp(with, "ENOSPC") == 0 ? ENOSPC : std::strcmp(with, "ENOMEM") == 0 ? ENOMEM : EIO;
    plan.at = at ? std::atol(at) : 0;
    plan.kind = std::strcmp(with, "SHORT") == 0    ? Kind::Short
                : std::strcmp(with, "MEMORY") == 0 ? Kind::Memory
                                                   : Kind::Error;
}

__attribute__((destructor)) void end()
{
    if (!plan.countFile)
        return;
    plan.kind = Kind::None;
    std::FILE *file = std::fopen(plan.countFile, "w");
    for (long i = 0; file && i < calls && i < static_cast<long>(MostSites); ++i)
        std::fprintf(file, "%x\n", sites[i]);
    if (file)
        std::fclose(file);
}

// Counts the call and returns true if this call fails.
bool fails(Kind kind, void *caller)
{
    if (plan.kind != kind || !isInMain)
        return false;
    const auto place = reinterpret_cast<std::uintptr_t>(caller);
    const bool isInProgram = place >= plan.programStart && place < plan.programEnd;
    if (kind == Kind::Memory && !isInProgram)
        return false;
    const long number = ++calls;
    if (sites && number <= static_cast<long>(MostSites))
        sites[number - 1] = isInProgram ? static_cast<std::uint32_t>(place - plan.programStart) : 0;
    return number == plan.at;
}

template <class Function>
Function real(const char *name)
{
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

template <class Result>
Result failed()
{
    errno = plan.code;
    if constexpr (std::is_pointer_v<Result>)
        return nullptr;
    else
        return -1;
}

} // namespace

#define CALLER __builtin_return_address(0)

// Wraps a call on files with fixed arguments.
#define WRAP(Result, name, arguments, ...)                                                                   \
    Result name arguments                                                                                    \
    {                                                                                                        \
        static const auto next = real<Result(*) arguments>(#name);                                           \
        return fails(Kind::Error, CALLER) ? failed<Result>() : next(__VA_ARGS__);                            \
    }

// Wraps a call that moves bytes, and that may move fewer bytes than asked for.
#define WRAP_TRANSFER(name, arguments, count, ...)                                                           \
    ssize_t name arguments                                                                                   \
    {                                                                                                        \
        static const auto next = real<ssize_t(*) arguments>(#name);                                          \
        if (fails(Kind::Error, CALLER))                                                                      \
            return failed<ssize_t>();                                                                        \
        if (count > 1 && fails(Kind::Short, CALLER))                                                         \
            count /= 2;                                                                                      \
        return next(__VA_ARGS__);                                                                            \
    }

// Wraps a call whose last argument may be missing.
#define WRAP_OPEN(name, arguments, ...)                                                                      \
    int name arguments                                                                                       \
    {                                                                                                        \
        static const auto next = real<int(*) arguments>(#name);                                              \
        va_list rest;                                                                                        \
        va_start(rest, flags);                                                                               \
        const auto mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(rest, mode_t) : mode_t{0};           \
        va_end(rest);                                                                                        \
        return fails(Kind::Error, CALLER) ? failed<int>() : next(__VA_ARGS__, mode);                         \
    }

extern "C" {

int __libc_start_main(int (*main)(int, char **, char **), int count, char **words, void (*initialise)(),
                      void (*finish)(), void (*finishLoader)(), void *stackEnd)
{
    using Start =
        int (*)(int (*)(int, char **, char **), int, char **, void (*)(), void (*)(), void (*)(), void *);
    programsMain = main;
    return real<Start>("__libc_start_main")(ownMain, count, words, initialise, finish, finishLoader,
                                            stackEnd);
}

WRAP_OPEN(open64, (const char *path, int flags, ...), path, flags)
WRAP_OPEN(openat64, (int at, const char *path, int flags, ...), at, path, flags)
WRAP_TRANSFER(read, (int number, void *into, std::size_t count), count, number, into, count)
WRAP_TRANSFER(write, (int number, const void *from, std::size_t count), count, number, from, count)
WRAP_TRANSFER(pread64, (int number, void *into, std::size_t count, off64_t offset), count, number, into,
              count, offset)
WRAP_TRANSFER(pwrite64, (int number, const void *from, std::size_t count, off64_t offset), count, number,
              from, count, offset)
WRAP(int, fsync, (int number), number)
WRAP(int, fdatasync, (int number), number)
WRAP(int, syncfs, (int number), number)
WRAP(int, sync_file_range, (int number, off64_t offset, off64_t length, unsigned flags), number, offset,
     length, flags)
WRAP(int, rename, (const char *from, const char *to), from, to)
WRAP(int, unlink, (const char *path), path)
WRAP(int, mkdir, (const char *path, mode_t mode), path, mode)
WRAP(int, mkdirat, (int at, const char *path, mode_t mode), at, path, mode)
WRAP(int, fchmod, (int number, mode_t mode), number, mode)
WRAP(int, fchown, (int number, uid_t owner, gid_t group), number, owner, group)
WRAP(int, ftruncate64, (int number, off64_t length), number, length)
WRAP(int, flock, (int number, int operation), number, operation)
WRAP(int, stat64, (const char *path, struct stat64 *status), path, status)
WRAP(int, lstat64, (const char *path, struct stat64 *status), path, status)
WRAP(int, fstat64, (int number, struct stat64 *status), number, status)
WRAP(int, fstatat64, (int at, const char *path, struct stat64 *status, int flags), at, path, status, flags)
WRAP(int, statvfs64, (const char *path, struct statvfs64 *status), path, status)
WRAP(int, fstatfs64, (int number, struct statfs64 *status), number, status)
WRAP(DIR *, opendir, (const char *path), path)
WRAP(DIR *, fdopendir, (int number), number)
WRAP(dirent64 *, readdir64, (DIR * listing), listing)
WRAP(std::FILE *, fopen64, (const char *path, const char *mode), path, mode)

// A file is closed even when "close" reports an error: its number is free, and its bytes may be lost.
int close(int number)
{
    static const auto next = real<int (*)(int)>("close");
    if (!fails(Kind::Error, CALLER))
        return next(number);
    next(number);
    return failed<int>();
}

// The C library has no function for "openat2".
long syscall(long number, ...)
{
    static const auto next = real<long (*)(long, ...)>("syscall");
    va_list rest;
    va_start(rest, number);
    long words[6];
    for (auto &word : words)
        word = va_arg(rest, long);
    va_end(rest);
    if (number == SYS_openat2 && fails(Kind::Error, CALLER))
        return failed<long>();
    return next(number, words[0], words[1], words[2], words[3], words[4], words[5]);
}

} // extern "C"

void *operator new(std::size_t size)
{
    void *memory = fails(Kind::Memory, CALLER) ? nullptr : std::malloc(size == 0 ? 1 : size);
    return memory ? memory : throw std::bad_alloc();
}

void operator delete(void *memory) noexcept
{
    std::free(memory);
}

void operator delete(void *memory, std::size_t) noexcept
{
    std::free(memory);
}
