#pragma once

#include "quor/Keywords.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <xercesc/dom/DOM.hpp>

namespace Veld::Quor::Tests {

using Simulators = std::vector<Core::Keywords::SimulatorType::Enum>;
inline const Simulators carrowAndSedge{
    Core::Keywords::SimulatorType::Carrow, Core::Keywords::SimulatorType::Sedge};

/// The root element of a text, for as long as the object lives.
class ParsedElement {
public:
    explicit ParsedElement(const std::string& xml);
    operator const xercesc::DOMElement*() const { return document_.GetDocument()->getDocumentElement(); }

private:
    Core::Service::XML::XMLDocument document_;
};

/// Metadata of a keyword that is valid for the simulators, from the text of their element. The text is gone
/// when this returns.
template <class Impl>
std::unique_ptr<Impl> Read(const std::string& xml, const Simulators& simulators = carrowAndSedge)
{
    auto md = std::make_unique<Impl>();
    md->ReadXML(ParsedElement(xml), simulators);
    return md;
}

/// The same text with a line end between any two tags, so that a text node is before each element.
std::string Indented(const std::string& xml);

/// The whole tree as one line: `type#number name "description" ...{content}`. What a node doesn't have, or
/// has when the document says nothing of it, is left out. Defaults are listed by simulator, and
/// after ! the type of the override: "Any=5 Carrow=calculated Sedge=none!no default".
std::string Dump(const Core::Keywords::IKeywordDataMD& md);

/// Where it is so, modes by their first letters: "Carrow/BCT Sedge/B"; or "everywhere", or "nowhere". Of
/// `SimulatorModeType::Any` the test must say whether it is so in any mode.
using ModeTest =
    std::function<bool(Core::Keywords::SimulatorType::Enum, Core::Keywords::SimulatorModeType::Enum)>;
std::string SimulatorsAndModes(const ModeTest& test);
std::string Dump(const Core::Keywords::IValidityMD& validity);
std::string Dump(const Core::Keywords::IUnsupportedByMD& unsupportedBy);

/// The dump of what one type element is read as.
std::string DumpOf(const std::string& xml, const Simulators& simulators = carrowAndSedge);

/// The text of the exception that `action` throws; "done" if it throws none.
template <class Action>
std::string FailureOf(Action action)
{
    try {
        action();
        return "done";
    } catch (const Core::Service::Exception& error) {
        return error.what();
    }
}

} // namespace Veld::Quor::Tests
