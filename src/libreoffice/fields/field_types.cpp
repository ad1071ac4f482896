#include "libreoffice/fields/field_types.h"

#include <algorithm>
#include <array>

namespace zorkanca {

namespace {

struct FieldType {
  std::uint8_t number;
  TextView name;
  FieldCare care = FieldCare::kMark;
};

// The numbers are those of the binary format's "flt". Types without a name of their own (1: not understood, 2: a
// bookmark alone, 34: a formula) have nothing to translate.
constexpr std::array kTypes = {
    FieldType{3, u"REF"},
    FieldType{4, u"XE", FieldCare::kLeave},
    FieldType{5, u"FTNREF"},
    FieldType{6, u"SET"},
    FieldType{7, u"IF"},
    FieldType{8, u"INDEX", FieldCare::kLeave},
    FieldType{9, u"TC", FieldCare::kLeave},
    FieldType{10, u"STYLEREF"},
    FieldType{11, u"RD"},
    FieldType{12, u"SEQ", FieldCare::kLeave},
    FieldType{13, u"TOC", FieldCare::kLeave},
    FieldType{14, u"INFO"},
    FieldType{15, u"TITLE"},
    FieldType{16, u"SUBJECT"},
    FieldType{17, u"AUTHOR"},
    FieldType{18, u"KEYWORDS"},
    FieldType{19, u"COMMENTS"},
    FieldType{20, u"LASTSAVEDBY"},
    FieldType{21, u"CREATEDATE"},
    FieldType{22, u"SAVEDATE"},
    FieldType{23, u"PRINTDATE"},
    FieldType{24, u"REVNUM"},
    FieldType{25, u"EDITTIME"},
    FieldType{26, u"NUMPAGES", FieldCare::kLeave},
    FieldType{27, u"NUMWORDS"},
    FieldType{28, u"NUMCHARS"},
    FieldType{29, u"FILENAME"},
    FieldType{30, u"TEMPLATE"},
    FieldType{31, u"DATE"},
    FieldType{32, u"TIME"},
    FieldType{33, u"PAGE", FieldCare::kLeave},
    FieldType{35, u"QUOTE"},
    FieldType{36, u"INCLUDE"},
    FieldType{37, u"PAGEREF", FieldCare::kLeave},
    FieldType{38, u"ASK"},
    FieldType{39, u"FILLIN"},
    FieldType{40, u"DATA"},
    FieldType{41, u"NEXT"},
    FieldType{42, u"NEXTIF"},
    FieldType{43, u"SKIPIF"},
    FieldType{44, u"MERGEREC"},
    FieldType{45, u"DDE", FieldCare::kObject},
    FieldType{46, u"DDEAUTO", FieldCare::kObject},
    FieldType{47, u"GLOSSARY"},
    FieldType{48, u"PRINT"},
    FieldType{49, u"EQ", FieldCare::kLeave},
    FieldType{50, u"GOTOBUTTON"},
    FieldType{51, u"MACROBUTTON"},
    FieldType{52, u"AUTONUMOUT"},
    FieldType{53, u"AUTONUMLGL"},
    FieldType{54, u"AUTONUM"},
    FieldType{55, u"IMPORT", FieldCare::kLeave},
    FieldType{56, u"LINK", FieldCare::kObject},
    FieldType{57, u"SYMBOL", FieldCare::kLeave},
    FieldType{58, u"EMBED", FieldCare::kObject},
    FieldType{59, u"MERGEFIELD"},
    FieldType{60, u"USERNAME"},
    FieldType{61, u"USERINITIALS"},
    FieldType{62, u"USERADDRESS"},
    FieldType{63, u"BARCODE"},
    FieldType{64, u"DOCVARIABLE"},
    FieldType{65, u"SECTION"},
    FieldType{66, u"SECTIONPAGES"},
    FieldType{67, u"INCLUDEPICTURE", FieldCare::kLeave},
    FieldType{68, u"INCLUDETEXT"},
    FieldType{69, u"FILESIZE"},
    FieldType{70, u"FORMTEXT", FieldCare::kObject},
    FieldType{71, u"FORMCHECKBOX", FieldCare::kObject},
    FieldType{72, u"NOTEREF"},
    FieldType{73, u"TOA"},
    FieldType{74, u"TA"},
    FieldType{75, u"MERGESEQ"},
    FieldType{77, u"PRIVATE"},
    FieldType{78, u"DATABASE"},
    FieldType{79, u"AUTOTEXT"},
    FieldType{80, u"COMPARE"},
    FieldType{81, u"ADDIN", FieldCare::kObject},
    FieldType{83, u"FORMDROPDOWN", FieldCare::kObject},
    FieldType{84, u"ADVANCE"},
    FieldType{85, u"DOCPROPERTY"},
    FieldType{87, u"CONTROL", FieldCare::kObject},
    FieldType{88, u"HYPERLINK", FieldCare::kLeave},
    FieldType{89, u"AUTOTEXTLIST"},
    FieldType{90, u"LISTNUM"},
    FieldType{91, u"HTMLCONTROL", FieldCare::kObject},
    FieldType{92, u"BIDIOUTLINE"},
    FieldType{93, u"ADDRESSBLOCK"},
    FieldType{94, u"GREETINGLINE"},
    FieldType{95, u"SHAPE", FieldCare::kObject},
};

template <typename Condition>
const FieldType* FindType(Condition condition) {
  const auto found = std::find_if(kTypes.begin(), kTypes.end(), condition);
  return found == kTypes.end() ? nullptr : &*found;
}

const FieldType* TypeOf(std::uint8_t number) {
  return FindType([&](const FieldType& type) { return type.number == number; });
}

const FieldType* TypeOf(TextView word) {
  return FindType([&](const FieldType& type) { return EqualsIgnoringCase(type.name, word); });
}

}  // namespace

FieldCare CareOf(std::uint8_t type) {
  const FieldType* known = TypeOf(type);
  return known ? known->care : FieldCare::kMark;
}

FieldCare CareOf(TextView word) {
  const FieldType* known = TypeOf(word);
  return known ? known->care : FieldCare::kMark;
}

std::optional<Text> EnglishNameFor(std::uint8_t type, TextView word) {
  constexpr std::uint8_t kReference = 3;  // its word may be left out, and then the first one is a bookmark
  const FieldType* known = TypeOf(type);
  if (!known || type == kReference || word.empty() || TypeOf(word)) return std::nullopt;
  return Text(known->name);
}

std::size_t ChooseFields(std::vector<FieldPlace>& fields) {
  std::size_t spoiled = 0;
  std::vector<bool> inObject(fields.size());
  for (std::size_t i = 0; i < fields.size(); ++i) {
    FieldPlace& field = fields[i];
    if (field.parent != FieldPlace::kNone) {
      inObject[i] = inObject[field.parent] || fields[field.parent].care == FieldCare::kObject;
    }
    field.marked = field.care == FieldCare::kMark && !inObject[i];
    if (field.care == FieldCare::kMark && inObject[i]) ++spoiled;
  }
  for (std::size_t i = fields.size(); i-- > 0;) {
    if (fields[i].marked && fields[i].parent != FieldPlace::kNone) fields[fields[i].parent].marked = true;
  }
  return spoiled;
}

}  // namespace zorkanca
