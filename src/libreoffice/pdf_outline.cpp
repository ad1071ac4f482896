#include "libreoffice/pdf_outline.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <fstream>
#include <optional>
#include <string_view>
#include <unordered_map>

#include "files/file_bytes.h"
#include "files/system_error.h"
#include "opc/document_kind.h"
#include "opc/package.h"
#include "runtime/ascii.h"
#include "runtime/utf8.h"

namespace zorkanca {

namespace {

using Destinations = std::unordered_map<std::string_view, std::string_view>;

void AppendHex(std::string& text, unsigned byte) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  text += {kDigits[byte >> 4 & 15], kDigits[byte & 15]};
}

// The number after a key of a dictionary: 21 of "/Root 21 0 R".
std::optional<std::size_t> NumberAfter(std::string_view text, std::string_view key) {
  const std::size_t at = text.find(key);
  if (at == text.npos) return std::nullopt;
  text.remove_prefix(at + key.size());
  text.remove_prefix(std::min(text.find_first_not_of(" \r\n"), text.size()));
  std::size_t number = 0;
  if (std::from_chars(text.data(), text.data() + text.size(), number).ec != std::errc()) return std::nullopt;
  return number;
}

// A PDF with one plain table of its objects, as LibreOffice writes them.
class PdfFile {
 public:
  explicit PdfFile(std::string_view bytes) : bytes_(bytes) {
    const std::size_t mark = bytes.rfind("startxref");
    const auto table = mark == bytes.npos ? std::nullopt : NumberAfter(bytes.substr(mark), "startxref");
    if (!table || *table >= mark || !bytes.substr(*table).starts_with("xref\n0 ")) return;
    const std::size_t trailer = bytes.find("<<", bytes.find("trailer", *table));
    const std::size_t end = bytes.rfind(">>", mark);
    if (trailer >= mark || end <= trailer || end > mark) return;
    table_ = *table;
    entries_ = bytes.substr(bytes.find('\n', table_ + 5) + 1);
    trailer_ = bytes.substr(trailer, end + 2 - trailer);
    size_ = NumberAfter(trailer_, "/Size").value_or(0);
  }

  bool IsUsable() const { return size_ > 0; }
  std::size_t table() const { return table_; }
  std::string_view trailer() const { return trailer_; }
  /// Numbers of objects are less than this.
  std::size_t size() const { return size_; }
  /// The content of an object, empty when it is not there.
  std::string_view Object(std::size_t number) const {
    constexpr std::size_t kEntry = 20;  // bytes of an object's place in the table
    const auto offset =
        number < size_ ? NumberAfter(entries_.substr(std::min(number * kEntry, entries_.size())), "") : std::nullopt;
    if (!offset || *offset >= bytes_.size()) return {};
    const std::string_view rest = bytes_.substr(*offset);
    const std::string head = std::to_string(number) + " 0 obj\n";
    const std::size_t end = rest.find("\nendobj");
    return rest.starts_with(head) && end != rest.npos ? rest.substr(head.size(), end - head.size()) : "";
  }

 private:
  std::string_view bytes_;
  std::string_view entries_;
  std::string_view trailer_;
  std::size_t table_ = 0;
  std::size_t size_ = 0;
};

// The entries "/name[page 0 R/XYZ left top zoom]" of the dictionary of named destinations.
Destinations ReadDestinations(std::string_view dictionary) {
  Destinations all;
  for (;;) {
    const std::size_t open = dictionary.find('[');
    const std::size_t close = dictionary.find(']', open);
    if (close == dictionary.npos) return all;
    const std::size_t name = dictionary.rfind('/', open);
    if (name != dictionary.npos) {
      all.emplace(dictionary.substr(name + 1, open - name - 1), dictionary.substr(open, close - open + 1));
    }
    dictionary.remove_prefix(close + 1);
  }
}

// What LibreOffice calls the destination of a bookmark: what is no ASCII letter or digit becomes the hexadecimal number
// of its character, after it was percent-encoded as in a link where links need that.
std::string DestinationName(std::string_view bookmark) {
  constexpr std::string_view kPlainInLinks = "-_.!~*'()";
  std::string name;
  for (const char character : bookmark) {
    if (IsAlphanumeric(character)) {
      name += character;
      continue;
    }
    if (kPlainInLinks.find(character) == kPlainInLinks.npos) name += "25";
    AppendHex(name, static_cast<unsigned char>(character));
  }
  return name;
}

std::string TextString(std::string_view utf8) {
  std::string text = "<FEFF";
  for (const char16_t unit : FromUtf8(utf8)) {
    AppendHex(text, static_cast<unsigned>(unit >> 8));
    AppendHex(text, static_cast<unsigned>(unit));
  }
  return text + ">";
}

std::string Reference(std::size_t object) {
  return " " + std::to_string(object) + " 0 R";
}

// Objects and the table that add to a PDF.
class Update {
 public:
  explicit Update(std::size_t offset) : offset_(offset) {}

  void Add(std::size_t number, const std::string& content) {
    std::string place = std::to_string(offset_ + bytes_.size());
    place.insert(0, 10 - std::min<std::size_t>(place.size(), 10), '0');
    table_ += std::to_string(number) + " 1\n" + place + " 00000 n \n";
    bytes_ += std::to_string(number) + " 0 obj\n" + content + "\nendobj\n\n";
  }
  std::string Finish(const std::string& trailer) const {
    return bytes_ + "xref\n" + table_ + "trailer\n" + trailer + "\nstartxref\n" +
           std::to_string(offset_ + bytes_.size()) + "\n%%EOF\n";
  }

 private:
  std::size_t offset_;
  std::string bytes_;
  std::string table_;
};

struct OutlineItem {
  std::string_view name;
  std::string_view destination;
};

void AddItems(Update& update, std::size_t root, const std::vector<OutlineItem>& items) {
  const std::size_t first = root + 1;
  const std::size_t last = root + items.size();
  update.Add(root, "<</Type/Outlines/First" + Reference(first) + "/Last" + Reference(last) + "/Count " +
                       std::to_string(items.size()) + ">>");
  for (std::size_t number = first; number <= last; ++number) {
    const OutlineItem& item = items[number - first];
    std::string content = "<</Title" + TextString(item.name) + "/Dest" + std::string(item.destination);
    if (number > first) content += "/Prev" + Reference(number - 1);
    if (number < last) content += "/Next" + Reference(number + 1);
    update.Add(number, content + "/Parent" + Reference(root) + ">>");
  }
}

// The old trailer with the new number of objects and a way back to the old table. The checksum in it would no longer be
// the file's.
std::string NewTrailer(const PdfFile& pdf, std::size_t size) {
  std::string trailer(pdf.trailer());
  const std::size_t old = trailer.find("/Size");
  trailer.replace(old, trailer.find_first_of("/>", old + 1) - old,
                  "/Size " + std::to_string(size) + "/Prev " + std::to_string(pdf.table()));
  if (const std::size_t checksum = trailer.find("/DocChecksum"); checksum != trailer.npos) {
    trailer.erase(checksum, trailer.find('\n', checksum) - checksum);
  }
  return trailer;
}

}  // namespace

std::vector<std::string> VisibleBookmarks(const std::string& path) {
  constexpr std::string_view kStart = ":bookmarkStart ";
  constexpr std::string_view kName = ":name=\"";
  std::vector<std::string> names;
  if (DocumentKindOf(path) != DocumentKind::kPackage) return names;
  const Package package = Package::Open(path);
  const std::string text = package.ReadPart(package.MainPart());
  for (std::size_t at = text.find(kStart); at != text.npos; at = text.find(kStart, at + 1)) {
    const std::string_view tag = std::string_view(text).substr(at, text.find('>', at) - at);
    const std::size_t name = tag.find(kName);
    if (name == tag.npos) continue;
    const std::string_view value = tag.substr(name + kName.size());
    const std::string_view bookmark = value.substr(0, value.find('"'));
    if (!bookmark.empty() && bookmark[0] != '_') names.emplace_back(bookmark);
  }
  return names;
}

bool AddOutline(const std::string& path, const std::vector<std::string>& names) {
  const std::string bytes = ReadFile(path);
  const PdfFile pdf(bytes);
  if (!pdf.IsUsable()) return false;
  constexpr std::string_view kCatalog = "<</Type/Catalog";
  const std::size_t root = NumberAfter(pdf.trailer(), "/Root").value_or(0);
  const std::string_view catalog = pdf.Object(root);
  const auto dictionary = NumberAfter(catalog, "/Dests");
  if (!catalog.starts_with(kCatalog) || !dictionary) return false;
  const Destinations destinations = ReadDestinations(pdf.Object(*dictionary));
  std::vector<OutlineItem> items;
  for (const std::string& name : names) {
    const auto found = destinations.find(DestinationName(name));
    if (found != destinations.end()) items.push_back({name, found->second});
  }
  if (items.empty()) return false;

  const std::size_t outline = pdf.size();
  Update update(bytes.size());
  update.Add(root, std::string(kCatalog) + "/Outlines" + Reference(outline) + "/PageMode/UseOutlines" +
                       std::string(catalog.substr(kCatalog.size())));
  AddItems(update, outline, items);
  std::ofstream file(path, std::ios::binary | std::ios::app);
  file << update.Finish(NewTrailer(pdf, outline + 1 + items.size())) << std::flush;
  if (!file) RaiseSystemError(EIO);
  return true;
}

}  // namespace zorkanca
