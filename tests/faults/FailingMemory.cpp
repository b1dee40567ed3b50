// Preloaded into a program: at each place that asks for memory it forks, and the child goes on with that
// request failing; a second child with all later ones failing too. The program itself goes on undisturbed.
//
// FAULTS_REPORT   file for the places whose children did not behave, and the counts at the end
// FAULTS_OUTPUT   file with the output of the program without failures; without it a child is to exit with 0
// FAULTS_FAILED   files FAULTS_FAILED1, ... hold other outputs that report the failure
// FAULTS_STATUS   the exit status of the program without failures
// FAULTS_DEPTH    how many callers make a place; 6

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <unwind.h>

extern "C" {
void* __libc_malloc(std::size_t);
void* __libc_calloc(std::size_t, std::size_t);
void* __libc_realloc(void*, std::size_t);
void* __libc_memalign(std::size_t, std::size_t);
}

namespace {

enum class Mode { Off, Watching, FailingAll, Done };

Mode mode = Mode::Off;
bool isOwn = false; // memory that this file itself asks for
bool isChild = false;
int places = 0;
int failures = 0;

struct Stack {
    std::uintptr_t callers[16] = {};
    int count = 0;
};

int Depth()
{
    static const int depth = std::getenv("FAULTS_DEPTH") ? std::atoi(std::getenv("FAULTS_DEPTH")) : 6;
    return depth;
}

_Unwind_Reason_Code AddCaller(_Unwind_Context* context, void* of)
{
    constexpr int own = 3; // frames of this file
    Stack& stack = *static_cast<Stack*>(of);
    const int at = stack.count++ - own;
    if (at >= 0)
        stack.callers[at] = _Unwind_GetIP(context);
    return at + 1 < Depth() && at < 15 ? _URC_NO_REASON : _URC_END_OF_STACK;
}

/// The XML parser's libraries are loaded and start once, before which is checked that there is memory for it.
_Unwind_Reason_Code FindStartOfParser(_Unwind_Context* context, void* found)
{
    Dl_info info = {};
    const bool hasName =
        ::dladdr(reinterpret_cast<void*>(_Unwind_GetIP(context)), &info) != 0 && info.dli_sname;
    const bool isStart = hasName
        && (std::strcmp(info.dli_sname, "dlopen") == 0
            || std::strstr(info.dli_sname, "XMLPlatformUtils10Initialize")
            || std::strstr(info.dli_sname, "XMLInitializer20initializeStaticData"));
    *static_cast<bool*>(found) = isStart;
    return isStart ? _URC_END_OF_STACK : _URC_NO_REASON;
}

bool IsInStartOfParser()
{
    bool found = false;
    _Unwind_Backtrace(FindStartOfParser, &found);
    return found;
}

std::uintptr_t HashOf(const Stack& stack)
{
    std::uintptr_t hash = 1469598103934665603U;
    for (const std::uintptr_t caller : stack.callers)
        hash = (hash ^ caller) * 1099511628211U;
    return hash | 1U;
}

bool IsNew(std::uintptr_t hash)
{
    static std::uintptr_t seen[1U << 20U];
    constexpr std::size_t size = sizeof seen / sizeof *seen;
    for (std::size_t at = hash % size;; at = (at + 1) % size) {
        if (seen[at] == hash)
            return false;
        if (seen[at] == 0) {
            seen[at] = hash;
            return true;
        }
    }
}

std::string ReadAll(int descriptor)
{
    std::string text;
    char part[4096];
    ::lseek(descriptor, 0, SEEK_SET);
    for (ssize_t count = 0; (count = ::read(descriptor, part, sizeof part)) > 0;)
        text.append(part, static_cast<std::size_t>(count));
    return text;
}

std::string ReadFile(const char* path)
{
    const int file = ::open(path, O_RDONLY);
    std::string text = ReadAll(file);
    ::close(file);
    return text;
}

int MakeFile(const char* start)
{
    char name[] = "/tmp/quor-faults-XXXXXX";
    const int file = ::mkstemp(name);
    ::unlink(name);
    if (start && ::write(file, start, std::strlen(start)) < 0)
        std::abort();
    return file;
}

bool EndsWith(const std::string& text, const std::string& end)
{
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

/// Whether the output is a whole one that reports the failure.
bool ReportsFailure(const std::string& output)
{
    const char* const start = std::getenv("FAULTS_FAILED");
    for (int i = 1; start && ::access((start + std::to_string(i)).c_str(), R_OK) == 0; ++i) {
        if (output == ReadFile((start + std::to_string(i)).c_str()))
            return true;
    }
    return false;
}

/// As it went without failures, or with the one line that says why not, and nothing wrong before it.
bool IsRight(int status, const std::string& output, const std::string& errors)
{
    if (!WIFEXITED(status))
        return false;
    const char* const expectedFile = std::getenv("FAULTS_OUTPUT");
    if (!expectedFile)
        return WEXITSTATUS(status) == 0;
    const std::string expected = ReadFile(expectedFile);
    if (WEXITSTATUS(status) == std::atoi(std::getenv("FAULTS_STATUS")) && output == expected)
        return true;
    return WEXITSTATUS(status) == 2 && EndsWith(errors, "quor: error: out of memory\n")
        && (expected.compare(0, output.size(), output) == 0 || ReportsFailure(output));
}

void Report(const char* what, int status, const Stack& stack, const std::string& errors)
{
    std::FILE* const report = std::fopen(std::getenv("FAULTS_REPORT"), "a");
    std::fprintf(report, "%s: %s %d\n", what, WIFSIGNALED(status) ? "signal" : "status",
        WIFSIGNALED(status) ? WTERMSIG(status) : WEXITSTATUS(status));
    for (const std::uintptr_t caller : stack.callers) {
        Dl_info info = {};
        if (caller == 0 || ::dladdr(reinterpret_cast<void*>(caller), &info) == 0)
            continue;
        std::fprintf(report, "    %s+0x%zx %s\n", info.dli_fname,
            static_cast<std::size_t>(caller - reinterpret_cast<std::uintptr_t>(info.dli_fbase)),
            info.dli_sname ? info.dli_sname : "");
    }
    std::fprintf(report, "    said: %.300s\n", errors.c_str());
    std::fclose(report);
}

/// True in the child.
bool Fork(Mode next, const Stack& stack)
{
    const bool hasOutput = std::getenv("FAULTS_OUTPUT") != nullptr;
    const std::string before = hasOutput ? ReadAll(STDOUT_FILENO) : "";
    const int output = MakeFile(before.c_str());
    const int errors = MakeFile(nullptr);
    const pid_t child = ::fork();
    if (child == 0) {
        ::dup2(output, STDOUT_FILENO);
        ::dup2(errors, STDERR_FILENO);
        ::alarm(20);
        isChild = true;
        mode = next;
        return true;
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    const std::string said = ReadAll(errors);
    if (!IsRight(status, ReadAll(output), said)) {
        ++failures;
        Report(next == Mode::Done ? "one failure" : "all fail from here", status, stack, said);
    }
    ::close(output);
    ::close(errors);
    return false;
}

__attribute__((noinline)) bool Fails()
{
    if (isOwn)
        return false;
    if (mode != Mode::Watching)
        return mode == Mode::FailingAll;
    isOwn = true;
    Stack stack;
    _Unwind_Backtrace(AddCaller, &stack);
    bool fails = false;
    if (IsNew(HashOf(stack)) && !IsInStartOfParser()) {
        ++places;
        fails = Fork(Mode::Done, stack) || Fork(Mode::FailingAll, stack);
    }
    isOwn = false;
    if (fails)
        errno = ENOMEM;
    return fails;
}

int (*programMain)(int, char**, char**);

int WatchedMain(int argc, char** argv, char** environment)
{
    if (std::getenv("FAULTS_OUTPUT"))
        mode = Mode::Watching;
    return programMain(argc, argv, environment);
}

struct Summary {
    ~Summary()
    {
        if (isChild || !std::getenv("FAULTS_REPORT"))
            return;
        mode = Mode::Off;
        std::FILE* const report = std::fopen(std::getenv("FAULTS_REPORT"), "a");
        std::fprintf(report, "places %d failures %d\n", places, failures);
        std::fclose(report);
    }
} summary;

} // namespace

// What a program that checks itself calls.
extern "C" void FaultsBegin()
{
    mode = Mode::Watching;
}

/// Whether this is a child in which memory failed.
extern "C" bool FaultsEnd()
{
    mode = isChild ? Mode::Done : Mode::Off;
    return isChild;
}

extern "C" void* malloc(std::size_t size)
{
    return Fails() ? nullptr : __libc_malloc(size);
}

extern "C" void* calloc(std::size_t count, std::size_t size)
{
    return Fails() ? nullptr : __libc_calloc(count, size);
}

extern "C" void* realloc(void* memory, std::size_t size)
{
    return Fails() ? nullptr : __libc_realloc(memory, size);
}

extern "C" void* aligned_alloc(std::size_t alignment, std::size_t size)
{
    return Fails() ? nullptr : __libc_memalign(alignment, size);
}

extern "C" int posix_memalign(void** memory, std::size_t alignment, std::size_t size)
{
    *memory = Fails() ? nullptr : __libc_memalign(alignment, size);
    return *memory ? 0 : ENOMEM;
}

extern "C" int __libc_start_main(int (*main)(int, char**, char**), int argc, char** argv, void (*init)(),
    void (*fini)(), void (*loaderFini)(), void* stackEnd)
{
    using Start =
        int (*)(int (*)(int, char**, char**), int, char**, void (*)(), void (*)(), void (*)(), void*);
    programMain = main;
    const auto start = reinterpret_cast<Start>(::dlsym(RTLD_NEXT, "__libc_start_main"));
    return start(WatchedMain, argc, argv, init, fini, loaderFini, stackEnd);
}
