#include "excel/display/text_width.h"

#include <algorithm>
#include <cmath>

#include "runtime/ascii.h"
#include "runtime/utf8.h"

namespace zorkanca::excel {

namespace {

constexpr double kUnitsPerEm = 2048;
constexpr double kPixelsPerPoint = 96.0 / 72;
constexpr char16_t kFirstAscii = 0x20;
constexpr char16_t kLastAscii = 0x7E;

// Advance widths from U+0020 to U+007E.
using Widths = std::array<std::uint16_t, kLastAscii - kFirstAscii + 1>;
constexpr Widths kCalibri = {
    463,  667,  821,  1020, 1038, 1464, 1397, 452,  621,  621,  1020, 1020, 511,  627,  517,  791,  1038, 1038, 1038,
    1038, 1038, 1038, 1038, 1038, 1038, 1038, 548,  548,  1020, 1020, 1020, 949,  1831, 1185, 1114, 1092, 1260, 1000,
    941,  1292, 1276, 516,  653,  1064, 861,  1751, 1322, 1356, 1058, 1378, 1112, 941,  998,  1314, 1162, 1822, 1063,
    998,  959,  628,  791,  628,  1020, 1020, 596,  981,  1076, 866,  1076, 1019, 625,  964,  1076, 470,  490,  931,
    470,  1636, 1076, 1080, 1076, 1076, 714,  801,  686,  1076, 925,  1464, 887,  927,  809,  644,  943,  644,  1020};
constexpr Widths kCalibriBold = {
    463,  667,  898,  1020, 1038, 1493, 1443, 478,  638,  638,  1020, 1020, 528,  627,  547,  880,  1038, 1038, 1038,
    1038, 1038, 1038, 1038, 1038, 1038, 1038, 565,  565,  1020, 1020, 1020, 949,  1840, 1241, 1148, 1084, 1291, 999,
    940,  1305, 1292, 546,  678,  1120, 866,  1790, 1349, 1385, 1090, 1405, 1153, 968,  1014, 1337, 1211, 1856, 1128,
    1064, 979,  665,  880,  665,  1020, 1020, 615,  1011, 1099, 857,  1099, 1031, 648,  971,  1099, 503,  523,  983,
    503,  1666, 1099, 1101, 1099, 1099, 728,  817,  710,  1099, 969,  1526, 941,  970,  814,  704,  973,  704,  1020};
constexpr Widths kArial = {
    569,  569,  727,  1139, 1139, 1821, 1366, 391,  682,  682,  797,  1196, 569,  682,  569,  569,  1139, 1139, 1139,
    1139, 1139, 1139, 1139, 1139, 1139, 1139, 569,  569,  1196, 1196, 1196, 1139, 2079, 1366, 1366, 1479, 1479, 1366,
    1251, 1593, 1479, 569,  1024, 1366, 1139, 1706, 1479, 1593, 1366, 1593, 1479, 1366, 1251, 1479, 1366, 1933, 1366,
    1366, 1251, 569,  569,  569,  961,  1139, 682,  1139, 1139, 1024, 1139, 1139, 569,  1139, 1139, 455,  455,  1024,
    455,  1706, 1139, 1139, 1139, 1139, 682,  1024, 569,  1139, 1024, 1479, 1024, 1024, 1024, 684,  532,  684,  1196};
constexpr Widths kArialBold = {
    569,  682,  971,  1139, 1139, 1821, 1479, 487,  682,  682,  797,  1196, 569,  682,  569,  569,  1139, 1139, 1139,
    1139, 1139, 1139, 1139, 1139, 1139, 1139, 682,  682,  1196, 1196, 1196, 1251, 1997, 1479, 1479, 1479, 1479, 1366,
    1251, 1593, 1479, 569,  1139, 1479, 1251, 1706, 1479, 1593, 1366, 1593, 1479, 1366, 1251, 1479, 1366, 1933, 1366,
    1366, 1251, 682,  569,  682,  1196, 1139, 682,  1139, 1251, 1139, 1251, 1139, 682,  1251, 1251, 569,  569,  1139,
    569,  1821, 1251, 1251, 1251, 1251, 797,  1139, 682,  1251, 1139, 1593, 1139, 1139, 1024, 797,  573,  797,  1196};
constexpr std::array<const Widths*, 4> kFaces = {&kCalibri, &kCalibriBold, &kArial, &kArialBold};

// Letters with marks from U+00A0 to U+017F are about as wide as the letters without; "." stands for others.
constexpr char16_t kFirstMarked = 0xA0;
constexpr std::string_view kBaseLetters =
    " ...............................AAAAAA.CEEEEIIII.NOOOOO..UUUUY..aaaaaa.ceeeeiiii.nooooo..uuuuy.yAaAaAaCcCcCcCcD."
    "..EeEeEeEeEeGgGgGgGgHh..IiIiIiIiI...JjKk.LlLlL.....NnNnNn...OoOoOo..RrRrRrSsSsSsSsTtT...UuUuUuUuUuUuWwYyYZzZzZz.";

// Others, in the order of kFaces.
struct Character {
  char16_t unit;
  std::array<std::uint16_t, 4> widths;
};
constexpr std::array kCharacters = std::to_array<Character>({
    {0x00A1, {667, 667, 682, 682}},     {0x00A3, {1038, 1038, 1139, 1139}}, {0x00A5, {1038, 1038, 1139, 1139}},
    {0x00A7, {1020, 1020, 1139, 1139}}, {0x00A9, {1709, 1709, 1509, 1509}}, {0x00AB, {1049, 1103, 1139, 1139}},
    {0x00AE, {1038, 1038, 1509, 1509}}, {0x00B0, {694, 701, 819, 819}},     {0x00B1, {1020, 1020, 1124, 1124}},
    {0x00B2, {688, 692, 682, 682}},     {0x00B3, {685, 688, 682, 682}},     {0x00B4, {598, 616, 682, 682}},
    {0x00B5, {1126, 1154, 1180, 1180}}, {0x00B6, {1200, 1224, 1100, 1139}}, {0x00B7, {517, 548, 682, 682}},
    {0x00BB, {1049, 1103, 1139, 1139}}, {0x00BC, {1303, 1347, 1708, 1708}}, {0x00BD, {1375, 1415, 1708, 1708}},
    {0x00BE, {1383, 1437, 1708, 1708}}, {0x00BF, {949, 949, 1251, 1251}},   {0x00C6, {1563, 1588, 2048, 2048}},
    {0x00D0, {1279, 1309, 1479, 1479}}, {0x00D7, {1020, 1020, 1196, 1196}}, {0x00D8, {1359, 1394, 1593, 1593}},
    {0x00DE, {1058, 1090, 1366, 1366}}, {0x00DF, {1080, 1136, 1251, 1251}}, {0x00E6, {1583, 1587, 1821, 1821}},
    {0x00F0, {1076, 1099, 1139, 1251}}, {0x00F7, {1020, 1020, 1124, 1124}}, {0x00F8, {1084, 1114, 1251, 1251}},
    {0x00FE, {1076, 1099, 1139, 1251}}, {0x010F, {1164, 1222, 1259, 1472}}, {0x0110, {1279, 1309, 1479, 1479}},
    {0x0111, {1130, 1165, 1139, 1251}}, {0x0131, {470, 503, 569, 569}},     {0x013E, {540, 627, 597, 789}},
    {0x0141, {880, 886, 1139, 1251}},   {0x0142, {507, 540, 455, 569}},     {0x0152, {1775, 1790, 2048, 2048}},
    {0x0153, {1740, 1726, 1933, 1933}}, {0x0165, {708, 744, 768, 981}},     {0x2013, {1020, 1020, 1139, 1139}},
    {0x2014, {1854, 1854, 2048, 2048}}, {0x2018, {511, 528, 455, 569}},     {0x2019, {511, 528, 455, 569}},
    {0x201A, {511, 528, 455, 569}},     {0x201C, {857, 891, 682, 1024}},    {0x201D, {857, 891, 682, 1024}},
    {0x201E, {857, 891, 682, 1024}},    {0x2026, {1414, 1457, 2048, 2048}}, {0x20AC, {1038, 1038, 1139, 1139}},
});

std::uint16_t UnitsOfCharacter(char16_t unit, std::size_t face) {
  const auto* found =
      std::find_if(kCharacters.begin(), kCharacters.end(), [&](const Character& one) { return one.unit == unit; });
  if (found != kCharacters.end()) return found->widths[face];
  const Widths& widths = *kFaces[face];
  const std::size_t marked = static_cast<std::size_t>(unit) - kFirstMarked;
  if (unit >= kFirstMarked && marked < kBaseLetters.size() && kBaseLetters[marked] != '.') {
    return widths[static_cast<std::size_t>(kBaseLetters[marked] - ' ')];
  }
  constexpr char16_t kFirstWide = 0x1100;  // about where scripts begin whose characters fill a square
  return unit >= kFirstWide ? static_cast<std::uint16_t>(kUnitsPerEm / 1) : widths['0' - ' '];
}

}  // namespace

TextWidths::TextWidths(const CellFont& font)
    : pixelsPerUnit_(font.size * kPixelsPerPoint / kUnitsPerEm), emPixels_(std::round(font.size * kPixelsPerPoint)) {
  const std::string name = AsciiLower(font.name);
  const bool narrow = name == "calibri" || name == "carlito";
  face_ = (narrow ? 0U : 2U) + (font.bold ? 1U : 0U);
  for (std::size_t i = 0; i < kFaces[face_]->size(); ++i) ascii_[kFirstAscii + i] = (*kFaces[face_])[i];
}

std::int64_t TextWidths::UnitsOf(std::string_view utf8) const {
  std::int64_t units = 0;
  for (std::size_t at = 0; at < utf8.size(); ++at) {
    const auto byte = static_cast<unsigned char>(utf8[at]);
    if (byte < 0x80) {
      units += ascii_[byte];
      continue;
    }
    if (byte < 0xC0) continue;  // in the middle of a character
    const std::size_t length = byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
    const Text character = FromUtf8(utf8.substr(at, length));
    units += UnitsOfCharacter(character[0], face_);
  }
  return units;
}

double TextWidths::PixelsOf(std::string_view utf8) const {
  return static_cast<double>(UnitsOf(utf8)) * pixelsPerUnit_;
}

double TextWidths::PixelsOfLines(std::string_view utf8) const {
  double widest = 0;
  for (;;) {
    const std::size_t end = utf8.find('\n');
    widest = std::max(widest, PixelsOf(utf8.substr(0, end)));
    if (end == utf8.npos) return widest;
    utf8.remove_prefix(end + 1);
  }
}

std::int64_t TextWidths::LinesWithin(std::string_view utf8, double pixels) const {
  constexpr std::int64_t kNoLimit = std::int64_t{1} << 40;
  const double units = pixels / pixelsPerUnit_;
  const std::int64_t room = units < static_cast<double>(kNoLimit) ? static_cast<std::int64_t>(units) : kNoLimit;
  std::int64_t lines = 0;
  for (;;) {
    const std::size_t end = utf8.find('\n');
    lines += LinesOfParagraph(utf8.substr(0, end), std::max<std::int64_t>(room, ascii_['0']));
    if (end == utf8.npos) return lines;
    utf8.remove_prefix(end + 1);
  }
}

std::int64_t TextWidths::LinesOfParagraph(std::string_view utf8, std::int64_t room) const {
  if (UnitsOf(utf8) <= room) return 1;
  std::int64_t lines = 1;
  std::int64_t used = 0;  // of the last line
  while (!utf8.empty()) {
    const std::size_t stop = std::min(utf8.find_first_of(" -"), utf8.size());
    const std::size_t end = stop < utf8.size() && utf8[stop] == '-' ? stop + 1 : stop;
    const std::int64_t word = UnitsOf(utf8.substr(0, end));
    if (used > 0 && used + word > room) {
      ++lines;
      used = 0;
    }
    used += word;
    if (used > room) {  // a word that fills lines
      lines += (used - 1) / room;
      used = (used - 1) % room + 1;
    }
    std::size_t next = end;
    for (; next < utf8.size() && utf8[next] == ' '; ++next) used += ascii_[' '];  // they may hang over the edge
    utf8.remove_prefix(next);
  }
  return lines;
}

// Fonts are drawn in whole pixels above and below the line; rows add two.
int TextWidths::LinePixels() const {
  const bool narrow = face_ < 2;
  const double ascent = narrow ? 0.952 : 0.905;
  const double descent = narrow ? 0.269 : 0.212;
  return static_cast<int>(std::lround(ascent * emPixels_) + std::lround(descent * emPixels_)) + 2;
}

int TextWidths::DigitPixels() const {
  return std::max(1, static_cast<int>(std::lround(ascii_['0'] * pixelsPerUnit_)));
}

// A quarter of a digit on each side and a line; see [MS-OI29500] 2.1.598.
int MarginPixels(int digitPixels) {
  return 2 * ((digitPixels + 3) / 4) + 1;
}

int PixelsOfWidth(double width, int digitPixels) {
  constexpr double kWidest = 255;
  const int half = 128 / digitPixels;
  return static_cast<int>((256 * std::clamp(width, 0.0, kWidest) + half) / 256 * digitPixels);
}

double ColumnWidthFor(double pixels, int digitPixels) {
  constexpr double kWidest = 255;
  const int whole = static_cast<int>(std::ceil(std::min(pixels, 1e6))) + MarginPixels(digitPixels);
  const double width = std::trunc((whole + whole % 8) * 256.0 / digitPixels) / 256;
  return std::min(width, kWidest);
}

}  // namespace zorkanca::excel
