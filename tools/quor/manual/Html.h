#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Veld::Quor::Tools {

/// A page of the manual. In `body` an address that begins with "@/" is one below the folder of the manual.
struct ManualPage {
    std::string path; ///< below the folder
    std::string title;
    std::string body;
};

/// The text with what HTML needs in place of its signs.
std::string EscapeHtml(std::string_view text);
/// The name as a part of a path and of an address: letters, digits and hyphens, and "~2A" for others.
std::string Slug(std::string_view name);
/// A link to `address`, which is one below the folder of the manual.
std::string Link(std::string_view address, std::string_view text);
/// "<tag>content</tag>"; nothing for no content.
std::string Element(const char* tag, const std::string& content);
/// A heading with an address of its own.
std::string Heading(const char* id, const char* text);
/// Links to steps above a page, and the page.
std::string Crumbs(const std::vector<std::string>& links, const std::string& here);

/// The file of a page.
std::string PageFile(const ManualPage& page);

} // namespace Veld::Quor::Tools
