// The bar codes that can be asked for: a standard's character set together with the layout of the font that draws it.
#pragma once

#include <array>

#include "runtime/text.h"

namespace zorkanca {

enum class BarCodeSymbology {
  kNone,             ///< an unknown name; its bar codes are empty
  kCode39,           ///< "Code39"
  kCode128B,         ///< "Code128B", first font layout: no start and stop
  kCode128BTtf,      ///< "Code_128B_TTF", second font layout: with start and stop
  kCode128BTtfMark,  ///< "Code_128B_TTF()", as before with the content between "'" and "~"
  kCode128C,         ///< "Code128C": the plain digits
  kCode128CTtf,      ///< "Code_128C_TTF", second font layout: digits in set C, anything else in set B
};

/// The published names.
inline constexpr std::array<TextView, 6> kSymbologyNames = {u"Code39",          u"Code128B", u"Code_128B_TTF",
                                                            u"Code_128B_TTF()", u"Code128C", u"Code_128C_TTF"};

/// The symbology of a published name, case respected; `kNone` for any other name.
BarCodeSymbology SymbologyNamed(TextView name);

}  // namespace zorkanca
