#pragma once

#include <string>

namespace Veld::Quor::Tools {

/// Where the manual of this user is kept; empty if the user has no such folder.
std::string FindManualFolder();

/// Opens a page, which may have "#..." at its end, in the browser of the desktop. False, and reported, if
/// there is none.
bool OpenInBrowser(const std::string& page);

} // namespace Veld::Quor::Tools
