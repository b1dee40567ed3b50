#pragma once

#include <filesystem>
#include <string>

namespace Veld::Quor::Benchmarks {

/// A syntax document in the folder for temporary files, for as long as the object lives.
class DocumentFile {
public:
    /// K0, K1 and so on, of 2.5 KB each; and W* and KKA*.
    explicit DocumentFile(int keywords);
    ~DocumentFile();
    DocumentFile(const DocumentFile&) = delete;
    DocumentFile& operator=(const DocumentFile&) = delete;

    std::string Path() const { return path_.string(); }

private:
    std::filesystem::path path_;
};

} // namespace Veld::Quor::Benchmarks
