#include "runtime/locale.h"

#include "runtime/code_page.h"

// The values are those that a fresh Windows shows for each language, as our users know them from their screens.
namespace zorkanca {

namespace {

constexpr TextView kNoBreakSpace = u"\u00A0";

Locale Czech() {
  Locale locale;
  locale.tag = u"cs-CZ";
  locale.decimalSeparator = u",";
  locale.groupSeparator = kNoBreakSpace;
  locale.listSeparator = u";";
  locale.currencySymbol = u"Kč";
  locale.dateSeparator = u".";
  locale.timeSeparator = u":";
  locale.shortDate = u"d.m.yyyy";
  locale.longDate = u"d. mmmm yyyy";
  locale.longTime = u"h:nn:ss";
  locale.morning = u"dop.";
  locale.afternoon = u"odp.";
  locale.dayNames = {u"neděle", u"pondělí", u"úterý", u"středa", u"čtvrtek", u"pátek", u"sobota"};
  locale.dayAbbreviations = {u"ne", u"po", u"út", u"st", u"čt", u"pá", u"so"};
  locale.monthNames = {u"leden",    u"únor",  u"březen", u"duben", u"květen",   u"červen",
                       u"červenec", u"srpen", u"září",   u"říjen", u"listopad", u"prosinec"};
  locale.monthNamesGenitive = {u"ledna",    u"února", u"března", u"dubna", u"května",    u"června",
                               u"července", u"srpna", u"září",   u"října", u"listopadu", u"prosince"};
  locale.monthAbbreviations = {u"led", u"úno", u"bře", u"dub", u"kvě", u"čvn",
                               u"čvc", u"srp", u"zář", u"říj", u"lis", u"pro"};
  locale.yes = u"Ano";
  locale.no = u"Ne";
  locale.trueWord = u"Pravda";
  locale.falseWord = u"Nepravda";
  locale.on = u"Zapnuto";
  locale.off = u"Vypnuto";
  locale.codePage = &CodePage::Get(1250);
  return locale;
}

Locale Slovak() {
  Locale locale;
  locale.tag = u"sk-SK";
  locale.decimalSeparator = u",";
  locale.groupSeparator = kNoBreakSpace;
  locale.listSeparator = u";";
  locale.currencySymbol = u"€";
  locale.dateSeparator = u". ";
  locale.timeSeparator = u":";
  locale.shortDate = u"d. m. yyyy";
  locale.longDate = u"d. mmmm yyyy";
  locale.longTime = u"h:nn:ss";
  locale.morning = u"AM";
  locale.afternoon = u"PM";
  locale.dayNames = {u"nedeľa", u"pondelok", u"utorok", u"streda", u"štvrtok", u"piatok", u"sobota"};
  locale.dayAbbreviations = {u"ne", u"po", u"ut", u"st", u"št", u"pi", u"so"};
  locale.monthNames = {u"január", u"február", u"marec",     u"apríl",   u"máj",      u"jún",
                       u"júl",    u"august",  u"september", u"október", u"november", u"december"};
  locale.monthNamesGenitive = {u"januára", u"februára", u"marca",     u"apríla",  u"mája",     u"júna",
                               u"júla",    u"augusta",  u"septembra", u"októbra", u"novembra", u"decembra"};
  locale.monthAbbreviations = {u"jan", u"feb", u"mar", u"apr", u"máj", u"jún",
                               u"júl", u"aug", u"sep", u"okt", u"nov", u"dec"};
  locale.yes = u"Áno";
  locale.no = u"Nie";
  locale.trueWord = u"Pravda";
  locale.falseWord = u"Nepravda";
  locale.on = u"Zapnuté";
  locale.off = u"Vypnuté";
  locale.codePage = &CodePage::Get(1250);
  return locale;
}

Locale American() {
  Locale locale;
  locale.tag = u"en-US";
  locale.decimalSeparator = u".";
  locale.groupSeparator = u",";
  locale.listSeparator = u",";
  locale.currencySymbol = u"$";
  locale.currencyAfterNumber = false;
  locale.currencySpaced = false;
  locale.negativeCurrencyInBrackets = true;
  locale.dateSeparator = u"/";
  locale.timeSeparator = u":";
  locale.shortDate = u"m/d/yyyy";
  locale.longDate = u"dddd, mmmm d, yyyy";
  locale.longTime = u"h:nn:ss AM/PM";
  locale.morning = u"AM";
  locale.afternoon = u"PM";
  locale.dateOrder = DateOrder::kMonthDayYear;
  locale.dotSeparatesTimes = true;
  locale.dayNames = {u"Sunday", u"Monday", u"Tuesday", u"Wednesday", u"Thursday", u"Friday", u"Saturday"};
  locale.dayAbbreviations = {u"Sun", u"Mon", u"Tue", u"Wed", u"Thu", u"Fri", u"Sat"};
  locale.monthNames = {u"January", u"February", u"March",     u"April",   u"May",      u"June",
                       u"July",    u"August",   u"September", u"October", u"November", u"December"};
  locale.monthNamesGenitive = locale.monthNames;
  locale.monthAbbreviations = {u"Jan", u"Feb", u"Mar", u"Apr", u"May", u"Jun",
                               u"Jul", u"Aug", u"Sep", u"Oct", u"Nov", u"Dec"};
  locale.yes = u"Yes";
  locale.no = u"No";
  locale.trueWord = u"True";
  locale.falseWord = u"False";
  locale.on = u"On";
  locale.off = u"Off";
  locale.codePage = &CodePage::Get(1252);
  return locale;
}

Locale German() {
  Locale locale;
  locale.tag = u"de-DE";
  locale.decimalSeparator = u",";
  locale.groupSeparator = u".";
  locale.listSeparator = u";";
  locale.currencySymbol = u"€";
  locale.dateSeparator = u".";
  locale.timeSeparator = u":";
  locale.shortDate = u"dd.mm.yyyy";
  locale.longDate = u"dddd, d. mmmm yyyy";
  locale.longTime = u"hh:nn:ss";
  locale.morning = u"AM";
  locale.afternoon = u"PM";
  locale.dayNames = {u"Sonntag", u"Montag", u"Dienstag", u"Mittwoch", u"Donnerstag", u"Freitag", u"Samstag"};
  locale.dayAbbreviations = {u"So", u"Mo", u"Di", u"Mi", u"Do", u"Fr", u"Sa"};
  locale.monthNames = {u"Januar", u"Februar", u"März",      u"April",   u"Mai",      u"Juni",
                       u"Juli",   u"August",  u"September", u"Oktober", u"November", u"Dezember"};
  locale.monthNamesGenitive = locale.monthNames;
  locale.monthAbbreviations = {u"Jan", u"Feb", u"Mrz", u"Apr", u"Mai", u"Jun",
                               u"Jul", u"Aug", u"Sep", u"Okt", u"Nov", u"Dez"};
  locale.yes = u"Ja";
  locale.no = u"Nein";
  locale.trueWord = u"Wahr";
  locale.falseWord = u"Falsch";
  locale.on = u"Ein";
  locale.off = u"Aus";
  locale.codePage = &CodePage::Get(1252);
  return locale;
}

const std::array<Locale, 4>& KnownLocales() {
  static const std::array<Locale, 4> locales{Czech(), Slovak(), American(), German()};
  return locales;
}

}  // namespace

const Locale* FindLocale(TextView tag) {
  for (const Locale& locale : KnownLocales()) {
    if (EqualsIgnoringCase(locale.tag, tag)) return &locale;
  }
  return nullptr;
}

std::vector<Text> KnownLocaleTags() {
  std::vector<Text> tags;
  for (const Locale& locale : KnownLocales()) tags.push_back(locale.tag);
  return tags;
}

}  // namespace zorkanca
