#pragma once

#include "quor/syntax/KeywordSyntaxTable.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace Veld::Quor::Tests {

/// A separate directory below the system's temporary one, removed at the end.
class TemporaryDirectory {
public:
    TemporaryDirectory();
    ~TemporaryDirectory();
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

    const std::filesystem::path& Path() const { return path_; }
    /// Writes a file, byte for byte, and gives its path.
    std::string Write(const std::string& name, std::string_view bytes) const;

private:
    std::filesystem::path path_;
};

/// An environment variable that has `value` for as long as the object lives.
class ScopedVariable {
public:
    ScopedVariable(const char* name, const std::string& value);
    ~ScopedVariable();
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;

private:
    const char* name_;
};

inline constexpr const char* mainVariable = "QUOR_KEYWORD_SYNTAX_FILE";
inline constexpr const char* trustedVariable = "QUOR_KEYWORD_TRUSTED_SYNTAX_DIR";

/// The process-wide table, loaded from two texts for as long as the object lives. The texts are what is
/// below the root. After it there is no table.
class LoadedTable {
public:
    explicit LoadedTable(const std::string& main, const std::string& trusted = {});
    ~LoadedTable();
    LoadedTable(const LoadedTable&) = delete;
    LoadedTable& operator=(const LoadedTable&) = delete;

    Core::Keywords::KeywordSyntaxTable* operator->() const { return table_; }
    /// The keyword of that name; fails the test, and gives another, if there is none.
    const Core::Keywords::IKeywordSyntax& Get(const std::string& name) const;

private:
    TemporaryDirectory directory_;
    ScopedVariable main_;
    ScopedVariable trusted_;
    Core::Keywords::KeywordSyntaxTable* table_;
};

/// What loading a table from the text says in its exception; "loaded" if it does load.
std::string LoadFailureOf(const std::string& main);

/// The element of a keyword.
std::string KeywordElement(const std::string& name, const std::string& content = {});
/// `body` as a whole document.
std::string Document(std::string_view body);

} // namespace Veld::Quor::Tests
