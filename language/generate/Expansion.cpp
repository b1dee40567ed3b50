#include "language/generate/Expansion.h"

#include "language/generate/ShortForms.h"
#include "quor/deck/DeckLanguage.h"

#include <algorithm>
#include <utility>

namespace {

/// The name in an element that has it and no other attribute.
std::string GetName(const Element& element, const char* attribute)
{
    const std::string* const name = element.Find(attribute);
    if (!name || name->empty() || element.attributes.size() != 1)
        Fail(element.place, "<" + element.tag + "> needs the attribute " + attribute + ", and no other");
    return *name;
}

} // namespace

void Pieces::Add(const Element& root)
{
    for (const Element& child : root.children) {
        if (child.tag.empty())
            continue;
        if (child.tag != "piece")
            Fail(child.place, "<" + child.tag + "> in <pieces>; expected <piece name=\"...\">");
        const std::string name = GetName(child, "name");
        const auto [first, isNew] = pieces_.emplace(name, Piece{child.children, child.place});
        if (!isNew)
            Fail(child.place,
                "piece '" + name + "' is defined twice, first at " + first->second.place.Text()
                    + "; rename or remove one");
    }
}

void Pieces::Expand(Element& root)
{
    AppendExpanded(std::exchange(root.children, {}), root);
}

void Pieces::CheckAllUsed() const
{
    for (const auto& [name, piece] : pieces_) {
        if (!piece.isUsed)
            Fail(piece.place,
                "piece '" + name + "' is never used; remove it, or write <use piece=\"" + name
                    + "\"/> where it belongs");
    }
}

void Pieces::AppendExpanded(std::vector<Element> elements, Element& to)
{
    for (Element& child : elements) {
        if (child.tag == "use") {
            AppendPiece(child, to);
            continue;
        }
        AppendExpanded(std::exchange(child.children, {}), child);
        ExpandShortForm(child, to);
        to.Add(std::move(child));
    }
}

void Pieces::AppendPiece(const Element& use, Element& to)
{
    const std::string name = GetName(use, "piece");
    if (!use.text.empty() || !use.children.empty())
        Fail(use.place, "<use> must be empty");
    Piece& piece = GetPiece(use, name);
    piece.isUsed = true;
    open_.push_back(name);
    AppendExpanded(piece.elements, to);
    open_.pop_back();
}

Pieces::Piece& Pieces::GetPiece(const Element& use, const std::string& name)
{
    const auto found = pieces_.find(name);
    if (found == pieces_.end()) {
        std::vector<std::string> known;
        for (const auto& [one, piece] : pieces_)
            known.push_back(one);
        const std::vector<std::string> nearest = Veld::Quor::Core::Decks::FindNearest(known, name);
        Fail(use.place,
            "unknown piece '" + name + "'"
                + (nearest.empty() ? "; define it in language/pieces"
                                   : "; did you mean '" + nearest.front() + "'?"));
    }
    const auto outer = std::find(open_.begin(), open_.end(), name);
    if (outer != open_.end()) {
        std::string chain;
        for (auto one = outer; one != open_.end(); ++one)
            chain += *one + " > ";
        Fail(use.place, "piece '" + name + "' uses itself: " + chain + name + "; remove this use");
    }
    return found->second;
}
