#include "barcode/bar_code_drawing.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <optional>
#include <string_view>
#include <utility>

#include "barcode/code128.h"
#include "barcode/code39.h"
#include "runtime/error.h"

namespace zorkanca {

namespace {

// Bars and spaces in turn, in modules, by symbol value; the last one is the stop (ISO/IEC 15417, table 1).
constexpr std::array<std::string_view, 107> kCode128Patterns = {
    "212222", "222122", "222221", "121223", "121322", "131222", "122213", "122312",  "132212", "221213", "221312",
    "231212", "112232", "122132", "122231", "113222", "123122", "123221", "223211",  "221132", "221231", "213212",
    "223112", "312131", "311222", "321122", "321221", "312212", "322112", "322211",  "212123", "212321", "232121",
    "111323", "131123", "131321", "112313", "132113", "132311", "211313", "231113",  "231311", "112133", "112331",
    "132131", "113123", "113321", "133121", "313121", "211331", "231131", "213113",  "213311", "213131", "311123",
    "311321", "331121", "312113", "312311", "332111", "314111", "221411", "431111",  "111224", "111422", "121124",
    "121421", "141122", "141221", "112214", "112412", "122114", "122411", "142112",  "142211", "241211", "221114",
    "413111", "241112", "134111", "111242", "121142", "121241", "114212", "124112",  "124211", "411212", "421112",
    "421211", "212141", "214121", "412121", "111143", "111341", "131141", "114113",  "114311", "411113", "411311",
    "113141", "114131", "311141", "411131", "211412", "211214", "211232", "2331112",
};

// Bars and spaces in turn, narrow or wide, by character value; the last one is "*" (ISO/IEC 16388, table 1).
constexpr std::array<std::string_view, 44> kCode39Patterns = {
    "nnnwwnwnn", "wnnwnnnnw", "nnwwnnnnw", "wnwwnnnnn", "nnnwwnnnw", "wnnwwnnnn", "nnwwwnnnn", "nnnwnnwnw", "wnnwnnwnn",
    "nnwwnnwnn", "wnnnnwnnw", "nnwnnwnnw", "wnwnnwnnn", "nnnnwwnnw", "wnnnwwnnn", "nnwnwwnnn", "nnnnnwwnw", "wnnnnwwnn",
    "nnwnnwwnn", "nnnnwwwnn", "wnnnnnnww", "nnwnnnnww", "wnwnnnnwn", "nnnnwnnww", "wnnnwnnwn", "nnwnwnnwn", "nnnnnnwww",
    "wnnnnnwwn", "nnwnnnwwn", "nnnnwnwwn", "wwnnnnnnw", "nwwnnnnnw", "wwwnnnnnn", "nwnnwnnnw", "wwnnwnnnn", "nwwnwnnnn",
    "nwnnnnwnw", "wwnnnnwnn", "nwwnnnwnn", "nwnwnwnnn", "nwnwnnnwn", "nwnnnwnwn", "nnnwnwnwn", "nwnnwnwnn",
};

constexpr std::size_t kCode39Asterisk = 43;
constexpr std::uint8_t kNarrow = 1;
constexpr std::uint8_t kWide = 3;

[[noreturn]] void RaiseNotCarried(TextView symbology, TextView content) {
  Raise(RuntimeError::kInvalidCall,
        Text(symbology).append(u" cannot carry the content \"").append(content).append(u"\""));
}

void AppendCode39(std::vector<std::uint8_t>& widths, std::size_t value) {
  if (!widths.empty()) widths.push_back(kNarrow);  // the gap between characters
  for (const char width : kCode39Patterns[value]) widths.push_back(width == 'w' ? kWide : kNarrow);
}

std::vector<std::uint8_t> DrawCode39(TextView content, bool checkCharacter) {
  if (!IsCode39Content(content)) RaiseNotCarried(u"Code 39", content);
  std::vector<std::uint8_t> widths;
  widths.reserve((content.size() + 3) * 10);
  AppendCode39(widths, kCode39Asterisk);
  for (const char16_t unit : content) AppendCode39(widths, *Code39Value(unit));
  if (checkCharacter) AppendCode39(widths, *Code39Value(Code39CheckCharacter(content)));
  AppendCode39(widths, kCode39Asterisk);
  return widths;
}

std::vector<std::uint8_t> DrawCode128(std::uint8_t start, const std::vector<std::uint8_t>& values) {
  std::vector<std::uint8_t> widths;
  widths.reserve((values.size() + 3) * 6 + 1);
  const auto append = [&widths](std::uint8_t value) {
    for (const char width : kCode128Patterns[value]) widths.push_back(static_cast<std::uint8_t>(width - '0'));
  };
  append(start);
  std::for_each(values.begin(), values.end(), append);
  append(Code128CheckValue(start, values));
  append(kCode128Stop);
  return widths;
}

std::vector<std::uint8_t> DrawCode128B(TextView content, const CodePage& codePage) {
  const std::optional<std::vector<std::uint8_t>> values = Code128BValues(content, codePage);
  const auto isStart = [](std::uint8_t value) { return value >= kCode128StartA; };
  // A font text may show start characters in its midst; no reader understands such a symbol.
  if (!values || std::any_of(values->begin(), values->end(), isStart)) RaiseNotCarried(u"Code 128 set B", content);
  return DrawCode128(kCode128StartB, *values);
}

std::vector<std::uint8_t> DrawCode128C(TextView content) {
  if (!IsCode128Digits(content)) RaiseNotCarried(u"Code 128 set C", content);
  return DrawCode128(kCode128StartC, Code128PairValues(content));
}

std::vector<std::uint8_t> WidthsOf(BarCodeSymbology symbology, TextView content, bool checkCharacter,
                                   const CodePage& codePage) {
  switch (symbology) {
    case BarCodeSymbology::kNone:
      break;
    case BarCodeSymbology::kCode39:
      return DrawCode39(content, checkCharacter);
    case BarCodeSymbology::kCode128B:
    case BarCodeSymbology::kCode128BTtf:
    case BarCodeSymbology::kCode128BTtfMark:
      return DrawCode128B(content, codePage);
    case BarCodeSymbology::kCode128C:
      return DrawCode128C(content);
    case BarCodeSymbology::kCode128CTtf:
      return IsCode128Digits(content) ? DrawCode128C(content) : DrawCode128B(content, codePage);
  }
  Raise(RuntimeError::kInvalidCall, u"There is nothing to draw: the bar code's symbology is unknown");
}

// Text and numbers of a picture in the order of writing.
class SvgText {
 public:
  SvgText& operator<<(TextView text) {
    text_.append(text);
    return *this;
  }
  SvgText& operator<<(std::size_t number) {
    AppendDecimal(text_, static_cast<std::int64_t>(number));
    return *this;
  }
  Text Take() { return std::move(text_); }

 private:
  Text text_;
};

// ASCII of a title in XML. The contents that symbologies carry hold no character that XML forbids.
void WriteEscaped(SvgText& svg, TextView title) {
  for (const char16_t& unit : title) {
    if (unit >= 0x7F || unit == u'&' || unit == u'<' || unit == u'>') {
      svg << u"&#" << std::size_t{unit} << u";";
    } else {
      svg << TextView(&unit, 1);
    }
  }
}

void WriteBars(SvgText& svg, const std::vector<std::uint8_t>& widths, std::size_t height) {
  std::size_t left = kBarCodeQuietZone;
  for (std::size_t index = 0; index < widths.size(); ++index) {
    const std::size_t width = widths[index];
    if (index % 2 == 0) svg << u"M" << left << u" 0h" << width << u"v" << height << u"h-" << width << u"z";
    left += width;
  }
}

}  // namespace

BarCodeDrawing DrawBarCode(BarCodeSymbology symbology, TextView content, bool checkCharacter,
                           const CodePage& codePage) {
  if (content.empty()) Raise(RuntimeError::kInvalidCall, u"There is nothing to draw: the bar code is empty");
  return {.content = Text(content), .widths = WidthsOf(symbology, content, checkCharacter, codePage)};
}

Text BarCodeSvg(const BarCodeDrawing& drawing) {
  const std::size_t bars = std::accumulate(drawing.widths.begin(), drawing.widths.end(), std::size_t{0});
  const std::size_t width = bars + 2 * kBarCodeQuietZone;
  const std::size_t height = std::max<std::size_t>(40, width * 15 / 100);
  SvgText svg;
  svg << u"<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 " << width << u" " << height << u"\" width=\""
      << 2 * width << u"\" height=\"" << 2 * height << u"\" shape-rendering=\"crispEdges\">\n<title>";
  WriteEscaped(svg, drawing.content);
  svg << u"</title>\n<rect width=\"" << width << u"\" height=\"" << height << u"\" fill=\"#fff\"/>\n<path d=\"";
  WriteBars(svg, drawing.widths, height);
  svg << u"\"/>\n</svg>\n";
  return svg.Take();
}

}  // namespace zorkanca
