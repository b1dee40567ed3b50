#pragma once

#include "quor/foundation/Export.h"
#include "quor/foundation/service/Exception.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace Veld::Quor::Core::Decks {

/// Why a text can't be read. `what()` of one that a source throws is the reason without the name of the file;
/// `Deck::Read` puts the name before it.
class VELD_QUOR_EXPORT SourceError : public Service::Exception {
public:
    /// `reason`: without the name of the file, as in "No such file or directory".
    explicit SourceError(const std::string& reason);
    SourceError(const SourceError&) = default;
    SourceError& operator=(const SourceError&) = default;
    ~SourceError() override;
};

/// The bytes of one file of a deck. Never changes, so any number of decks and threads may share it.
class VELD_QUOR_EXPORT SourceText {
public:
    /// Reads a regular file. Throws `SourceError` if there is no such file, it can't be read, or it is a
    /// folder, a pipe or a device; also for one whose size isn't known (below /proc) if it has more than
    /// 64 MiB, and for one that another program cuts short meanwhile.
    static std::shared_ptr<const SourceText> FromFile(const std::string& path);
    /// Keeps the bytes, a byte order mark included.
    static std::shared_ptr<const SourceText> FromMemory(std::string bytes);

    /// From now on large files are mapped into memory, not copied, so that reading a large deck takes no
    /// memory for its text. Sets a handler of the signal SIGBUS for the process, which passes on what isn't
    /// about such a file; set another one before, or pass on to this one. If another program cuts a mapped
    /// file short, what is missing reads as zero bytes, and reading a deck from it throws `SourceError`.
    static void AllowMapping();

    ~SourceText();
    SourceText(const SourceText&) = delete;
    SourceText& operator=(const SourceText&) = delete;

    /// The bytes without a byte order mark of UTF-8. Valid as long as this object.
    std::string_view GetText() const;
    /// The byte order mark before it; empty if there is none.
    std::string_view GetMark() const;
    /// Whether the bytes begin with the byte order mark of an encoding in 16-bit units, which decks can't
    /// have.
    bool IsWide() const;
    /// False once bytes of a mapped file were asked for that it no longer has.
    bool IsIntact() const;
    /// A hint that these bytes of a mapped file aren't needed soon. They stay readable.
    void Release(std::size_t begin, std::size_t end) const;

private:
    class Bytes;
    explicit SourceText(std::unique_ptr<const Bytes> bytes);

    std::unique_ptr<const Bytes> bytes_;
};

/// Where the files of a deck come from: returns the bytes for a path. A host derives from it to read from an
/// archive or a database. One source may serve several threads at once.
///
/// Paths are those of the deck: the name that the host gave for the deck itself, and for an included file its
/// name below the folder of the deck, or as it is if it is absolute.
class VELD_QUOR_EXPORT DeckSource {
public:
    virtual ~DeckSource();

    /// Returns a text that is the same for all paths that lead to one file, and different for two files, so
    /// that a file that includes itself is noticed. Throws `SourceError` if there is no such file.
    virtual std::string Identify(const std::string& path) const = 0;
    /// Throws `SourceError` if the file can't be read; null is the same, without a reason. Any other
    /// exception ends the read, and leaves `Deck::Read` as it is.
    virtual std::shared_ptr<const SourceText> Open(const std::string& path) const = 0;

protected:
    DeckSource();
    DeckSource(const DeckSource&);
    DeckSource& operator=(const DeckSource&);
};

/// The files of the system. Relative paths start from the current folder of the process.
class VELD_QUOR_EXPORT FileSource : public DeckSource {
public:
    FileSource();
    ~FileSource() override;

    std::string Identify(const std::string& path) const override;
    std::shared_ptr<const SourceText> Open(const std::string& path) const override;
};

/// Texts in memory, such as the unsaved buffers of an editor, in front of another source.
class VELD_QUOR_EXPORT MemorySource : public DeckSource {
public:
    /// `others` serves the paths that have no text here; null: such paths are missing files.
    explicit MemorySource(std::shared_ptr<const DeckSource> others = nullptr);
    ~MemorySource() override;
    MemorySource(const MemorySource&) = delete;
    MemorySource& operator=(const MemorySource&) = delete;

    /// Sets the text of a path, which replaces an earlier one. Not while a deck is being read from the
    /// source. Spellings of a path are the same if they lead to the same file without links: `a/../b.inc`,
    /// `./b.inc`, and the absolute path, from the folder that is the current one at each call. A null text is
    /// a file that can't be read.
    /// @{
    void Set(const std::string& path, std::string bytes);
    void Set(const std::string& path, std::shared_ptr<const SourceText> text);
    /// @}

    /// Removes the text of a path, if it has one: the other source serves it again.
    void Remove(const std::string& path);

    std::string Identify(const std::string& path) const override;
    std::shared_ptr<const SourceText> Open(const std::string& path) const override;

private:
    struct Texts;
    const std::shared_ptr<const SourceText>* Find(const std::string& path) const;

    std::unique_ptr<Texts> texts_;
};

} // namespace Veld::Quor::Core::Decks
