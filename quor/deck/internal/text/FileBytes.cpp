#include "quor/deck/internal/text/FileBytes.h"

#include "quor/deck/DeckSource.h"
#include "quor/deck/internal/text/ReadBytes.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <new>

#include <sys/mman.h>
#include <unistd.h>

namespace Veld::Quor::Core::Decks {

namespace {

using Guard = FileBytes::Guard;

std::array<Guard, 1024> guards; // a file for which there is none left is copied
std::atomic<bool> isMappingAllowed = false;
struct sigaction earlierAction = {};

Guard* FindGuard(std::uintptr_t address)
{
    for (Guard& guard : guards) {
        if (guard.begin > 1 && address >= guard.begin && address < guard.end)
            return &guard;
    }
    return nullptr;
}

void PassOn(int signal, siginfo_t* info, void* context)
{
    if ((earlierAction.sa_flags & SA_SIGINFO) != 0)
        earlierAction.sa_sigaction(signal, info, context);
    else if (earlierAction.sa_handler != SIG_DFL && earlierAction.sa_handler != SIG_IGN)
        earlierAction.sa_handler(signal);
    else
        ::signal(signal, SIG_DFL); // it comes again, and ends the process
}

/// Gives the pages that the file doesn't have any more zero bytes.
void FillUp(int signal, siginfo_t* info, void* context)
{
    const int error = errno;
    const auto address = reinterpret_cast<std::uintptr_t>(info->si_addr);
    Guard* const guard = FindGuard(address);
    const auto page = static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE));
    char* const begin = static_cast<char*>(info->si_addr) - address % page;
    const auto isFilled = [&] { // to the end of the file
        const std::size_t size = guard->end - (address - address % page);
        return ::mmap(begin, size, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED, -1, 0) != MAP_FAILED;
    };
    if (!guard || !isFilled())
        PassOn(signal, info, context);
    else
        guard->isCut = true;
    errno = error;
}

/// Null if there is none left, or nobody allowed to map files.
Guard* TakeGuard()
{
    if (!isMappingAllowed)
        return nullptr;
    for (Guard& guard : guards) {
        std::uintptr_t free = 0;
        if (guard.begin.compare_exchange_strong(free, 1))
            return &guard;
    }
    return nullptr;
}

/// The handler is code of this library, which may be unloaded.
class Handler {
public:
    Handler()
    {
        struct sigaction action = {};
        action.sa_sigaction = FillUp;
        action.sa_flags = SA_SIGINFO | SA_NODEFER | SA_ONSTACK;
        ::sigemptyset(&action.sa_mask);
        isMappingAllowed = ::sigaction(SIGBUS, &action, &earlierAction) == 0;
    }
    ~Handler()
    {
        isMappingAllowed = false;
        struct sigaction current = {};
        if (::sigaction(SIGBUS, nullptr, &current) == 0 && current.sa_sigaction == FillUp)
            ::sigaction(SIGBUS, &earlierAction, nullptr);
    }
    Handler(const Handler&) = delete;
    Handler& operator=(const Handler&) = delete;
};

} // namespace

void FileBytes::AllowMapping()
{
    static const Handler handler;
}

FileBytes::FileBytes(int descriptor, std::size_t size)
    : size_(size)
    , length_(size)
    , guard_(TakeGuard())
{
    if (!guard_ || !Map(descriptor))
        Copy(descriptor);
}

/// False, and the guard is given back, if the file system can't do it.
bool FileBytes::Map(int descriptor)
{
    void* const bytes = ::mmap(nullptr, size_, PROT_READ, MAP_PRIVATE, descriptor, 0);
    if (bytes == MAP_FAILED) {
        guard_->begin = 0;
        guard_ = nullptr;
        return false;
    }
    ::madvise(bytes, size_, MADV_SEQUENTIAL);
    bytes_ = static_cast<const char*>(bytes);
    guard_->isCut = false;
    guard_->end = reinterpret_cast<std::uintptr_t>(bytes) + size_;
    guard_->begin = reinterpret_cast<std::uintptr_t>(bytes);
    return true;
}

void FileBytes::Copy(int descriptor)
{
    void* const bytes = ::mmap(nullptr, size_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (bytes == MAP_FAILED)
        throw std::bad_alloc();
    ::madvise(bytes, size_, MADV_HUGEPAGE);
    bytes_ = static_cast<const char*>(bytes);
    try {
        length_ = ReadWhole(descriptor, static_cast<char*>(bytes), size_);
    } catch (...) {
        ::munmap(bytes, size_);
        throw;
    }
}

FileBytes::~FileBytes()
{
    if (guard_)
        guard_->begin = 1; // the handler doesn't know it any more
    ::munmap(const_cast<char*>(bytes_), size_);
    if (guard_)
        guard_->begin = 0;
}

void FileBytes::Release(std::size_t begin, std::size_t end) const
{
    if (!guard_)
        return;
    const auto page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    begin = (begin + page - 1) / page * page;
    end = end / page * page;
    if (begin < end)
        ::madvise(const_cast<char*>(bytes_) + begin, end - begin, MADV_DONTNEED);
}

} // namespace Veld::Quor::Core::Decks
