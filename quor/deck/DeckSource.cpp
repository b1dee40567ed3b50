#include "quor/deck/DeckSource.h"

#include "quor/deck/internal/text/ReadBytes.h"
#include "quor/deck/internal/text/SystemPath.h"

#include <cerrno>
#include <filesystem>
#include <map>
#include <new>
#include <system_error>
#include <utility>

#include <sys/stat.h>

namespace Veld::Quor::Core::Decks {

namespace {

std::string Normal(const std::string& path)
{
    std::error_code error; // the current folder was removed
    const std::filesystem::path absolute = std::filesystem::absolute(path, error);
    if (error == std::errc::not_enough_memory)
        throw std::bad_alloc();
    return (error ? std::filesystem::path(path) : absolute).lexically_normal().string();
}

} // namespace

DeckSource::DeckSource() = default;
DeckSource::DeckSource(const DeckSource&) = default;
DeckSource& DeckSource::operator=(const DeckSource&) = default;
DeckSource::~DeckSource() = default;

FileSource::FileSource() = default;
FileSource::~FileSource() = default;

std::string FileSource::Identify(const std::string& path) const
{
    struct stat status = {};
    if (::stat(SystemPath(path), &status) != 0)
        FailBySystem();
    return std::to_string(status.st_dev) + ':' + std::to_string(status.st_ino);
}

std::shared_ptr<const SourceText> FileSource::Open(const std::string& path) const
{
    return SourceText::FromFile(path);
}

struct MemorySource::Texts {
    std::map<std::string, std::shared_ptr<const SourceText>> byPath;
    std::shared_ptr<const DeckSource> others; // or null
};

MemorySource::MemorySource(std::shared_ptr<const DeckSource> others)
    : texts_(std::make_unique<Texts>(Texts{{}, std::move(others)}))
{
}

MemorySource::~MemorySource() = default;

void MemorySource::Set(const std::string& path, std::string bytes)
{
    Set(path, SourceText::FromMemory(std::move(bytes)));
}

void MemorySource::Set(const std::string& path, std::shared_ptr<const SourceText> text)
{
    texts_->byPath[Normal(path)] = std::move(text);
}

void MemorySource::Remove(const std::string& path)
{
    texts_->byPath.erase(Normal(path));
}

const std::shared_ptr<const SourceText>* MemorySource::Find(const std::string& path) const
{
    const auto text = texts_->byPath.find(Normal(path));
    if (text != texts_->byPath.end())
        return &text->second;
    if (!texts_->others)
        throw SourceError(std::generic_category().message(ENOENT));
    return nullptr;
}

std::string MemorySource::Identify(const std::string& path) const
{
    return Find(path) ? "memory:" + Normal(path) : texts_->others->Identify(path);
}

std::shared_ptr<const SourceText> MemorySource::Open(const std::string& path) const
{
    const auto* const text = Find(path);
    return text ? *text : texts_->others->Open(path);
}

} // namespace Veld::Quor::Core::Decks
