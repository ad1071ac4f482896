#include "barcode/symbology.h"

namespace zorkanca {

BarCodeSymbology SymbologyNamed(TextView name) {
  if (name == u"Code39") return BarCodeSymbology::kCode39;
  if (name == u"Code128B") return BarCodeSymbology::kCode128B;
  if (name == u"Code_128B_TTF") return BarCodeSymbology::kCode128BTtf;
  if (name == u"Code_128B_TTF()") return BarCodeSymbology::kCode128BTtfMark;
  if (name == u"Code128C") return BarCodeSymbology::kCode128C;
  if (name == u"Code_128C_TTF") return BarCodeSymbology::kCode128CTtf;
  return BarCodeSymbology::kNone;
}

}  // namespace zorkanca
