// Preloaded into a program: one call of the system about a file below a folder goes wrong.
//
// FAULTS_FOLDER   calls about its files are counted
// FAULTS_CALL     the number of the call, from 1
// FAULTS_KIND     fail: the call fails; short: it moves half of the bytes; crash: the process ends before it;
//                 signal: SIGTERM comes before it; change: another program writes to the file
//                 FAULTS_CHANGED before it
// FAULTS_REPORT   file that gets the number of calls if it was fewer than FAULTS_CALL

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

namespace {

template <class Function>
Function* Next(const char* name)
{
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

const char* Variable(const char* name)
{
    const char* const value = std::getenv(name);
    return value ? value : "";
}

bool isWatched[1024]; // by descriptor
int calls = 0;
bool isOwn = false;

void Watch(int descriptor, bool isBelow)
{
    if (descriptor >= 0 && descriptor < 1024)
        isWatched[descriptor] = isBelow;
}

bool IsWatched(int descriptor)
{
    return descriptor >= 0 && descriptor < 1024 && isWatched[descriptor];
}

bool IsBelow(const char* path)
{
    const std::string folder = Variable("FAULTS_FOLDER");
    return !folder.empty() && std::strncmp(path, folder.c_str(), folder.size()) == 0;
}

void ChangeFile()
{
    isOwn = true;
    std::FILE* const file = std::fopen(Variable("FAULTS_CHANGED"), "a");
    std::fputs("-- an edit\n", file);
    std::fclose(file);
    isOwn = false;
}

/// Counts a call; whether it is to go wrong, in a way that the caller has to care for.
bool GoesWrong(const char* kind)
{
    if (isOwn || ++calls != std::atoi(Variable("FAULTS_CALL")))
        return false;
    const std::string wanted = Variable("FAULTS_KIND");
    if (wanted == "crash")
        ::_exit(99);
    if (wanted == "signal")
        std::raise(SIGTERM);
    if (wanted == "change")
        ChangeFile();
    return wanted == kind;
}

int Fail()
{
    errno = EIO;
    return -1;
}

struct Summary {
    ~Summary()
    {
        if (calls >= std::atoi(Variable("FAULTS_CALL")))
            return;
        std::FILE* const report = std::fopen(Variable("FAULTS_REPORT"), "w");
        std::fprintf(report, "%d\n", calls);
        std::fclose(report);
    }
} summary;

} // namespace

extern "C" int open(const char* path, int flags, ...)
{
    std::va_list rest;
    va_start(rest, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    const bool isBelow = !isOwn && IsBelow(path);
    if (isBelow && GoesWrong("fail"))
        return Fail();
    const int descriptor = Next<int(const char*, int, ...)>("open")(path, flags, mode);
    Watch(descriptor, isBelow);
    return descriptor;
}

extern "C" ssize_t read(int descriptor, void* bytes, std::size_t size)
{
    const bool isShort = IsWatched(descriptor) && std::strcmp(Variable("FAULTS_KIND"), "short") == 0;
    if (IsWatched(descriptor) && GoesWrong(isShort ? "short" : "fail")) {
        if (!isShort)
            return Fail();
        size = size / 2 + 1;
    }
    return Next<ssize_t(int, void*, std::size_t)>("read")(descriptor, bytes, size);
}

extern "C" ssize_t write(int descriptor, const void* bytes, std::size_t size)
{
    const bool isShort = IsWatched(descriptor) && std::strcmp(Variable("FAULTS_KIND"), "short") == 0;
    if (IsWatched(descriptor) && GoesWrong(isShort ? "short" : "fail")) {
        if (!isShort)
            return Fail();
        size = size / 2 + 1;
    }
    return Next<ssize_t(int, const void*, std::size_t)>("write")(descriptor, bytes, size);
}

extern "C" int fsync(int descriptor)
{
    if (IsWatched(descriptor) && GoesWrong("fail"))
        return Fail();
    return Next<int(int)>("fsync")(descriptor);
}

extern "C" int close(int descriptor)
{
    const bool fails = IsWatched(descriptor) && GoesWrong("fail");
    Watch(descriptor, false);
    const int result = Next<int(int)>("close")(descriptor);
    return fails ? Fail() : result;
}

extern "C" int rename(const char* from, const char* to) noexcept
{
    // An edit right before it is lost: nothing can look later.
    const bool isEdited = std::strcmp(Variable("FAULTS_KIND"), "change") == 0;
    if (!isEdited && IsBelow(from) && GoesWrong("fail"))
        return Fail();
    return Next<int(const char*, const char*)>("rename")(from, to);
}
