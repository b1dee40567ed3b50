#pragma once

#include <map>
#include <string>

namespace Veld::Quor::Tools::LanguageServer {

/// What finding codes mean, as files that an editor opens when the code of a diagnostic is clicked. They are
/// in a folder for files that go, each is written when first asked for, and they live as long as this object.
class Explanations {
public:
    Explanations() = default;
    ~Explanations();
    Explanations(const Explanations&) = delete;
    Explanations& operator=(const Explanations&) = delete;

    /// Empty if it can't be written.
    std::string UriOf(const std::string& code);
    /// In Markdown.
    static std::string TextOf(const std::string& code);

private:
    std::string folder_; // empty: not made yet
    bool isUnwritable_ = false;
    std::map<std::string, std::string> uris_;
};

} // namespace Veld::Quor::Tools::LanguageServer
