#pragma once

#include "language/generate/Markup.h"

#include <map>
#include <string>
#include <vector>

/// Named pieces of the language: any elements that several places of the documents share. A document names
/// one, `<use piece="well"/>`, where the elements are to be.
class Pieces {
public:
    /// Adds those of a document with the root `pieces`. Fails for a name that is used twice.
    void Add(const Element& root);

    /// Replaces all short forms below `root`: the names of pieces, and what ShortForms.h says. Fails for a
    /// name that is unknown, and for a piece that uses itself.
    void Expand(Element& root);

    /// Fails for a piece that no call of `Expand` met.
    void CheckAllUsed() const;

private:
    struct Piece {
        std::vector<Element> elements;
        Place place;
        bool isUsed = false;
    };

    void AppendExpanded(std::vector<Element> elements, Element& to);
    void AppendPiece(const Element& use, Element& to);
    Piece& GetPiece(const Element& use, const std::string& name);

    std::map<std::string, Piece> pieces_;
    std::vector<std::string> open_; // those that are being expanded, outermost first
};
