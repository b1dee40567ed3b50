#include "tools/quor/manual/Browser.h"

#include "quor/foundation/service/Environment.h"
#include "tools/quor/terminal/Terminal.h"

#include <fmt/format.h>

#include <cctype>
#include <string>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Veld::Quor::Tools {

namespace {

/// The path of a page as an address: what has a meaning there is escaped.
std::string AddressOf(const std::string& page)
{
    std::string address = "file://";
    for (const char c : page) {
        const auto byte = static_cast<unsigned char>(c);
        if (std::isalnum(byte) || std::string("/-_.~#").find(c) != std::string::npos)
            address += c;
        else
            address += fmt::format("%{:02X}", byte);
    }
    return address;
}

/// The exit status of "xdg-open", or -1 if it can't be started.
int RunOpener(std::string address)
{
    std::string name = "xdg-open";
    char* arguments[] = {name.data(), address.data(), nullptr};
    pid_t child = 0;
    int status = 0;
    if (::posix_spawnp(&child, name.c_str(), nullptr, nullptr, arguments, environ) != 0
        || ::waitpid(child, &status, 0) != child || !WIFEXITED(status))
        return -1;
    return WEXITSTATUS(status);
}

} // namespace

std::string FindManualFolder()
{
    const std::string cache = Core::Service::GetEnvVariable("XDG_CACHE_HOME");
    const std::string home = Core::Service::GetEnvVariable("HOME");
    if (!cache.empty())
        return cache + "/quor/manual";
    return home.empty() ? home : home + "/.cache/quor/manual";
}

bool OpenInBrowser(const std::string& page)
{
    const std::string address = AddressOf(page);
    const int status = RunOpener(address);
    if (status != 0)
        PrintError(fmt::format("{}; the page is {}",
            status < 0 ? "'xdg-open', which opens a browser, can't be started"
                       : "'xdg-open' opened no browser",
            address));
    return status == 0;
}

} // namespace Veld::Quor::Tools
