#pragma once

#include "quor/foundation/UnitSystem.h"
#include "quor/metadata/IKeywordDataMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/syntax/IKeywordSyntax.h"

#include <string>

namespace Veld::Quor::Tools::LanguageServer {

// For people, in Markdown.

/// A keyword, as `quor show` describes it.
std::string DescriptionOf(const Core::Keywords::IKeywordSyntax& syntax, const std::string& spelling,
    Core::Keywords::UnitSystem::Enum units);

/// An item of a record of the keyword. `md`: the item, or of a list of scalars in it their metadata.
std::string DescriptionOf(const Core::Keywords::IKeywordSyntax& syntax,
    const Core::Keywords::IKeywordRecordMD& record, int item, const Core::Keywords::IKeywordDataMD& md,
    Core::Keywords::UnitSystem::Enum units);

/// The values of a list that is all the keyword's data.
std::string DescriptionOfElement(const Core::Keywords::IKeywordSyntax& syntax,
    const Core::Keywords::IKeywordDataMD& md, Core::Keywords::UnitSystem::Enum units);

/// Text as it is, in Markdown.
std::string Escaped(const std::string& text);

} // namespace Veld::Quor::Tools::LanguageServer
