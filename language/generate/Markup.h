#pragma once

#include "language/generate/Place.h"

#include <string>
#include <string_view>
#include <vector>

/// The declaration that each document starts with.
inline constexpr std::string_view xmlDeclaration = R"(<?xml version="1.0" encoding="UTF-8"?>)";

struct Attribute {
    std::string name;
    std::string value;
};

/// An element, or a comment, of a document. Its attributes and children are in the order of the document.
struct Element {
    std::string tag; ///< empty: a comment
    std::vector<Attribute> attributes;
    std::string text; ///< of an element without children, or of a comment
    std::vector<Element> children;
    Place place;

    /// Null if there is none.
    const std::string* Find(std::string_view attribute) const;
    /// Removes the attribute and returns its value; empty if there is none.
    std::string Take(std::string_view attribute);
    Element& Add(Element child);
};

/// An element without a place, for those that are made.
Element MakeElement(std::string tag, std::vector<Attribute> attributes = {}, std::string text = {});

struct Document {
    std::string prolog; ///< what is between the declaration and the root: comments
    Element root;
};

/// Reads a file in UTF-8. Blanks of texts are collapsed. Fails for one that is not well-formed.
Document ReadDocument(const std::string& path);

/// The text of an element, with one element a line.
std::string Layout(const Element& element);
