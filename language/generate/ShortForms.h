#pragma once

#include "language/generate/Markup.h"

/// Replaces the short form of an element, if it has one, by what the loader reads; its children must have
/// been expanded. `parent` is where it will be.
///
/// - A keyword: `sections="GRID EDIT"` and `precedents="ENDSCALE"` stand for their elements.
/// - A scalar: its text stands for its description, and the attributes min, max, default, quantity,
///   caseSensitive, lengthLimit and, of a choice, words, for their elements.
/// - A scalar with a name, in a record: the item of that name, with this scalar.
/// - `records`: a list of records, all of which end with a slash on a separate line.
void ExpandShortForm(Element& element, const Element& parent);
