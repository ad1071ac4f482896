#include "runtime/code_page_tables.h"

#include "runtime/error.h"

// The facts are those of Windows' own best-fit tables; signs that are easily mistaken for others are written as
// escapes.
namespace zorkanca {

namespace {

constexpr TextView kUpperHalf1250 =
    u"€\u0081‚\u0083„…†‡\u0088‰Š‹ŚŤŽŹ"
    u"\u0090‘’“”•–—\u0098\u2122š›śťžź"
    u"\u00A0\u02C7\u02D8Ł¤Ą¦§\u00A8©Ş«¬\u00AD®Ż"
    u"°±\u02DBł\u00B4µ¶·\u00B8ąş»Ľ\u02DDľż"
    u"ŔÁÂĂÄĹĆÇČÉĘËĚÍÎĎ"
    u"ĐŃŇÓÔŐÖ×ŘŮÚŰÜÝŢß"
    u"ŕáâăäĺćçčéęëěíîď"
    u"đńňóôőö÷řůúűüýţ\u02D9";

constexpr TextView kUpperHalf1251 =
    u"ЂЃ‚ѓ„…†‡€‰Љ‹ЊЌЋЏ"
    u"ђ‘’“”•–—\u0098\u2122љ›њќћџ"
    u"\u00A0ЎўЈ¤Ґ¦§Ё©Є«¬\u00AD®Ї"
    u"°±Ііґµ¶·ё\u2116є»јЅѕї"
    u"АБВГДЕЖЗИЙКЛМНОП"
    u"РСТУФХЦЧШЩЪЫЬЭЮЯ"
    u"абвгдежзийклмноп"
    u"рстуфхцчшщъыьэюя";

constexpr TextView kUpperHalf1252 =
    u"€\u0081‚ƒ„…†‡\u02C6‰Š‹Œ\u008DŽ\u008F"
    u"\u0090‘’“”•–—\u02DC\u2122š›œ\u009DžŸ"
    u"\u00A0¡¢£¤¥¦§\u00A8©ª«¬\u00AD®\u00AF"
    u"°±²³\u00B4µ¶·\u00B8¹º»¼½¾¿"
    u"ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏ"
    u"ÐÑÒÓÔÕÖ×ØÙÚÛÜÝÞß"
    u"àáâãäåæçèéêëìíîï"
    u"ðñòóôõö÷øùúûüýþÿ";

// Latin letters with marks fall back to the bare letter in every page that lacks them.
constexpr Substitute kLetters[] = {
    {u'A', u"ÀÁÂÃÄÅĀĂĄǍǞ"}, {u'C', u"ÇĆĈĊČ"}, {u'D', u"Ď"},           {u'E', u"ÈÉÊËĒĔĖĘĚ"},
    {u'G', u"ĜĞĠĢǤǦ"},      {u'H', u"ĤĦ"},    {u'I', u"ÌÍÎÏĨĪĬĮİƗǏ"}, {u'J', u"Ĵ"},
    {u'K', u"ĶǨ"},          {u'L', u"ĹĻĽŁ"},  {u'N', u"ÑŃŅŇ"},        {u'O', u"ÒÓÔÕÖØŌŎŐƟƠǑǪǬ"},
    {u'R', u"ŔŖŘ"},         {u'S', u"ŚŜŞŠ"},  {u'T', u"ŢŤŦƮ"},        {u'U', u"ÙÚÛÜŨŪŬŮŰŲƯǓǕǗǙǛ"},
    {u'W', u"Ŵ"},           {u'Y', u"ÝŶŸ"},   {u'Z', u"ŹŻŽ"},         {u'a', u"àáâãäåāăąǎǟ"},
    {u'b', u"ƀ"},           {u'c', u"çćĉċč"}, {u'd', u"ďđ"},          {u'e', u"èéêëēĕėęě"},
    {u'g', u"ĝğġģǥǧ"},      {u'h', u"ĥħ"},    {u'i', u"ìíîïĩīĭįǐ"},   {u'j', u"ĵǰ"},
    {u'k', u"ķǩ"},          {u'l', u"ĺļľłƚ"}, {u'n', u"ñńņň"},        {u'o', u"òóôõöøōŏőơǒǫǭ"},
    {u'r', u"ŕŗř"},         {u's', u"śŝşš"},  {u't', u"ţťŧƫ"},        {u'u', u"ùúûüũūŭůűųưǔǖǘǚǜ"},
    {u'w', u"ŵ"},           {u'y', u"ýÿŷ"},   {u'z', u"źżž"},
};

// Symbols, spaces and marks on which the two Latin pages agree.
constexpr Substitute kLatinSymbols[] = {
    {u' ', u"\u2000\u2001\u2002\u2003\u2004\u2005\u2006\u3000"},
    {u'!', u"\u01C3"},
    {u'"', u"\u02BA\u030E"},
    {u'%', u"\u066A"},
    {u'\'', u"\u02B9\u02BC\u02C8′"},
    {u'*', u"∗"},
    {u'-', u"‐‑−"},
    {u'/', u"⁄∕"},
    {u'0', u"₀"},
    {u'1', u"₁"},
    {u'2', u"₂"},
    {u'3', u"₃"},
    {u'4', u"⁴₄"},
    {u'5', u"⁵₅"},
    {u'6', u"⁶₆"},
    {u'7', u"⁷₇"},
    {u'8', u"⁸₈"},
    {u'9', u"₉"},
    {u':', u"\u0589∶"},
    {u';', u"\u037E"},
    {u'<', u"\u2329\u3008"},
    {u'>', u"\u232A\u3009"},
    {u'B', u"\u212C"},
    {u'C', u"\u2102\u212D"},
    {u'E', u"\u2107\u2130"},
    {u'F', u"\u2131"},
    {u'H', u"\u210B\u210C\u210D"},
    {u'I', u"\u2110\u2111"},
    {u'K', u"\u212A"},
    {u'L', u"\u2112"},
    {u'M', u"\u2133"},
    {u'N', u"\u2115"},
    {u'P', u"\u2118\u2119"},
    {u'Q', u"\u211A"},
    {u'R', u"\u211B\u211C\u211D"},
    {u'Z', u"\u2124\u2128"},
    {u'[', u"\u301A"},
    {u'\\', u"∖"},
    {u']', u"\u301B"},
    {u'^', u"\u02C4\u0302⌃"},
    {u'_', u"\u02CD\u0331\u0332"},
    {u'`', u"\u02CB\u0300‵"},
    {u'e', u"\u212E\u212F"},
    {u'g', u"ɡ\u210A"},
    {u'h', u"һ\u210E"},
    {u'i', u"ı"},
    {u'l', u"\u2113"},
    {u'o', u"\u2134"},
    {u'z', u"ƶ"},
    {u'|', u"\u01C0∣❘"},
    {u'~', u"\u0303∼"},
    {u'¦', u"⌂"},
    {u'\u00A8', u"\u0308"},
    {u'«', u"≪\u300A"},
    {u'°', u"\u02DA\u030A⁰∘"},
    {u'±', u"∓"},
    {u'\u00B4', u"\u02CA\u0301"},
    {u'µ', u"μ"},
    {u'·', u"⋅\u30FB"},
    {u'\u00B8', u"\u0327"},
    {u'»', u"≫\u300B"},
    {u'ß', u"β"},
};

// What only the Central European page has or has differently.
constexpr Substitute kOwn1250[] = {
    {u'!', u"¡‼"},
    {u'+', u"├┤┴┼╬♀"},
    {u'-', u"↔│┌┘╔╝▀▄█░▒▓▬"},
    {u'0', u"○◙☼"},
    {u'1', u"¹¼½"},
    {u'2', u"²"},
    {u'3', u"³¾"},
    {u'<', u"◄"},
    {u'=', u"═"},
    {u'>', u"►♂"},
    {u'A', u"Æ"},
    {u'F', u"Ƒ"},
    {u'L', u"£∟└╚"},
    {u'O', u"Œ"},
    {u'T', u"┬╦"},
    {u'Y', u"¥"},
    {u'^', u"\u02C6↑▲"},
    {u'a', u"ªæ"},
    {u'c', u"¢"},
    {u'd', u"♪♫"},
    {u'f', u"ƒ"},
    {u'o', u"ºœ"},
    {u'|', u"↕↨"},
    {u'~', u"\u02DC"},
    {u'¦', u"─║╠╣╩■♠♣♥♦"},
    {u'¬', u"┐╗"},
    {u'Đ', u"Ɖ"},
    {u'Ĺ', u"\u212B"},
    {u'Ł', u"₤"},
    {u'Ř', u"∅"},
    {u'Ż', u"\u02C9\u0304\u0305"},
    {u'\u02C7', u"\u030C↓▼"},
    {u'\u02D8', u"\u0306☺☻"},
    {u'\u02D9', u"\u0307"},
    {u'—', u"\u00AF\u30FC"},
    {u'‘', u"\u02BB❛"},
    {u'’', u"❜"},
    {u'“', u"❝\u301D"},
    {u'”', u"″❞\u301E"},
    {u'„', u"\u301F"},
    {u'•', u"․∙◘"},
    {u'‹', u"←"},
    {u'›', u"→"},
};

// What only the Cyrillic page has or has differently.
constexpr Substitute kOwn1251[] = {
    {u'!', u"‼"},    {u'+', u"├┤┴┼╪╫╬♀"}, {u'-', u"↔─┌┘╒╛╜╝▀▄█░▒▓▬"},
    {u'0', u"○◙☼"},  {u'<', u"←◄"},       {u'=', u"═"},
    {u'>', u"→►♂"},  {u'D', u"Đ"},        {u'L', u"∟└╘╙╚"},
    {u'O', u"☺☻"},   {u'T', u"┬╤╥╦"},     {u'^', u"↑▲"},
    {u'd', u"♪♫"},   {u'v', u"↓√"},       {u'¦', u"↕↨⌂│║╞╟╠╡╢╣╧╨╩▌▐■♠♣♥♦"},
    {u'¬', u"┐╕╖╗"}, {u'Ў', u"▼"},        {u'г', u"╓╔"},
    {u'•', u"∙◘"},
};

// What only the Western European page has or has differently.
constexpr Substitute kOwn1252[] = {
    {u'(', u"⌠"},
    {u')', u"⌡"},
    {u'+', u"┌┐└┘├┼╒╓╔╕╖╗╘╙╚╛╜╝╪╫╬"},
    {u'-', u"─┬┴═╤╥╦╧╨╩"},
    {u'8', u"∞"},
    {u'=', u"‗≡≤≥"},
    {u'F', u"Φ"},
    {u'G', u"Γ"},
    {u'O', u"Ω"},
    {u'P', u"₧"},
    {u'S', u"Σ"},
    {u'T', u"Θ"},
    {u'_', u"▄"},
    {u'a', u"α"},
    {u'd', u"δ"},
    {u'e', u"ε"},
    {u'f', u"φ"},
    {u'n', u"\u207F∩"},
    {u'p', u"π"},
    {u's', u"σ"},
    {u't', u"τ"},
    {u'v', u"√"},
    {u'¢', u"₡"},
    {u'£', u"₤"},
    {u'¤', u"☼"},
    {u'¦', u"│┤║╞╟╠╡╢╣█▌▐░▒▓■"},
    {u'¬', u"⌐"},
    {u'\u00AF', u"\u02C9\u0304\u0305▀"},
    {u'·', u"․∙"},
    {u'Å', u"\u212B"},
    {u'Ð', u"ĐƉ"},
    {u'Ø', u"∅"},
    {u'ƒ', u"Ƒ"},
    {u'\u02DC', u"≈"},
};

}  // namespace

CodePageTable CodePageTableOf(int number) {
  switch (number) {
    case 1250:
      return {kUpperHalf1250, {kLetters, kLatinSymbols, kOwn1250}};
    case 1251:
      return {kUpperHalf1251, {kLetters, {}, kOwn1251}};
    case 1252:
      return {kUpperHalf1252, {kLetters, kLatinSymbols, kOwn1252}};
    default:
      Raise(RuntimeError::kInvalidCall);
  }
}

}  // namespace zorkanca
