// The plain-text markers by which authors mark up Word templates:
//
//   {<A>} {<S>} {<D>} {<O>}   kind of the merge: catalogue, labels, form letters, envelopes
//   {<h} ... {h>}             heading block of a catalogue: stays in its first occurrence only
//   {<p} ... {p>}             closing block: stays in its last occurrence only
//   «name»                    in the header or footer of the first section: a column of the exported query
#pragma once

#include "export/export_context.h"
#include "platform/word/word_document.h"

namespace zorkanca {

/// Opens a heading block; a template that has one is a catalogue.
inline constexpr TextView kHeadingStart = u"{<h}";

/// Looks for a marker in the main text, character by character; one that is found is deleted, but for `kHeadingStart`.
/// @return true when the marker is there
bool FindMarker(WordDocument& document, TextView marker);

/// Leaves the first heading block and the last closing block without their markers and deletes the repetitions that the
/// merge has made of them. Passes the text once in each direction, however many blocks there are.
void ApplyBlockMarkup(WordDocument& document);

/// Fills the placeholders of the first section's header and footer from the first record of the running export's query;
/// nothing happens when none runs. A placeholder that names no column ends the filling of its header or footer.
void FillHeaderFooterPlaceholders(const ExportContext& context, WordDocument& document);

}  // namespace zorkanca
