// A host that knows the libraries by its plug-ins alone: two of them at once, in a child after a fork, one
// closed while the other works on, both closed, and opened again.  host PLUGIN OTHER

#include <cstdio>
#include <cstdlib>

#include <dlfcn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr double expected = 3.25;

void Require(bool holds, const char* claim)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", claim);
    std::exit(1);
}

class Plugin {
public:
    explicit Plugin(const char* path)
        : library_(::dlopen(path, RTLD_NOW | RTLD_LOCAL))
    {
        if (!library_)
            std::fprintf(stderr, "%s\n", ::dlerror());
        Require(library_ != nullptr, "a plug-in is opened");
        work_ = reinterpret_cast<double (*)()>(::dlsym(library_, "Work"));
        Require(work_ != nullptr, "a plug-in can work");
    }
    ~Plugin() { Require(::dlclose(library_) == 0, "a plug-in is closed"); }
    Plugin(const Plugin&) = delete;
    Plugin& operator=(const Plugin&) = delete;

    bool Works() const { return work_() == expected; }

private:
    void* library_;
    double (*work_)();
};

void WorkInChild(const Plugin& plugin)
{
    const pid_t child = ::fork();
    if (child == 0)
        std::exit(plugin.Works() ? 0 : 1); // with all that is done at an exit
    int status = 0;
    Require(::waitpid(child, &status, 0) == child && status == 0, "a child works, and exits");
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3)
        return 2;
    for (int round = 0; round < 3; ++round) {
        const Plugin plugin(argv[1]);
        {
            const Plugin other(argv[2]);
            WorkInChild(other);
            Require(other.Works() && plugin.Works(), "two plug-ins work");
            WorkInChild(plugin);
        }
        Require(plugin.Works(), "a plug-in works when the other is closed");
    }
    return 0;
}
