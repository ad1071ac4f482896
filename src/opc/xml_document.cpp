#include "opc/xml_document.h"

#include <expat.h>

#include <algorithm>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>
#include <vector>

#include "opc/office_error.h"
#include "runtime/ascii.h"

namespace zorkanca {

namespace {

constexpr std::size_t kPiece = 1 << 24;  // expat counts in int
constexpr XML_Char kNamespaceSeparator = '\x1F';

// One pass of the strict parser; it only counts and refuses.
class Gate {
 public:
  Gate(const XmlSource& source, const XmlLimits& limits)
      : source_(source), limits_(limits), parser_(XML_ParserCreateNS(nullptr, kNamespaceSeparator)) {
    if (!parser_) throw std::bad_alloc();
    XML_SetUserData(parser_.get(), this);
    XML_SetElementHandler(parser_.get(), &Gate::OnStart, &Gate::OnEnd);
    XML_SetStartNamespaceDeclHandler(parser_.get(), &Gate::OnDeclaration);
    XML_SetCommentHandler(parser_.get(), [](void* gate, const XML_Char*) { Self(gate).Count(2); });
    XML_SetProcessingInstructionHandler(parser_.get(),
                                        [](void* gate, const XML_Char*, const XML_Char*) { Self(gate).Count(2); });
    XML_SetStartCdataSectionHandler(parser_.get(), [](void* gate) { Self(gate).Count(2); });
    XML_SetStartDoctypeDeclHandler(parser_.get(), [](void* gate, const XML_Char*, const XML_Char*, const XML_Char*,
                                                     int) { Self(gate).Stop("it declares a document type"); });
    XML_SetXmlDeclHandler(parser_.get(), [](void* gate, const XML_Char*, const XML_Char* encoding, int) {
      if (encoding) Self(gate).CheckEncoding(encoding);
    });
  }

  void Check(std::string_view bytes) {
    bool last = false;
    while (!last) {
      const std::size_t length = std::min(bytes.size(), kPiece);
      last = length == bytes.size();
      if (XML_Parse(parser_.get(), bytes.data(), static_cast<int>(length), last) != XML_STATUS_OK) Refuse();
      bytes.remove_prefix(length);
    }
  }

 private:
  struct FreeParser {
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
  };

  static Gate& Self(void* gate) { return *static_cast<Gate*>(gate); }

  static void XMLCALL OnDeclaration(void* gate, const XML_Char*, const XML_Char*) {
    ++Self(gate).declarations_;
    Self(gate).Count(1);
  }
  static void XMLCALL OnStart(void* gate, const XML_Char*, const XML_Char** attributes) {
    std::uint64_t count = 0;
    for (; *attributes; attributes += 2) ++count;
    Self(gate).Enter(count);
  }
  static void XMLCALL OnEnd(void* gate, const XML_Char*) {
    Self(gate).openAttributes_.pop_back();
    Self(gate).Count(1);  // the text behind the end
  }

  // The declarations of an element are told before it.
  void Enter(std::uint64_t attributes) {
    Count(2 + attributes);  // with the element and the text behind its start
    const std::uint64_t around = openAttributes_.empty() ? 0 : openAttributes_.back();
    openAttributes_.push_back(around + attributes + std::exchange(declarations_, 0));
    if (openAttributes_.size() > limits_.depth) Stop("its elements are nested too deeply");
    if (openAttributes_.back() > limits_.attributes) Stop("its elements have too many attributes");
  }

  void Count(std::uint64_t nodes) {
    nodes_ += nodes;
    if (nodes_ > limits_.nodes) Stop("it has too many elements");
  }

  void CheckEncoding(std::string_view encoding) {
    const std::string name = AsciiLower(encoding);
    if (name != "utf-8" && name != "utf-16" && name != "us-ascii") {
      Stop("its encoding is " + std::string(encoding) + ", not UTF-8 or UTF-16");
    }
  }

  void Stop(std::string reason) {
    if (reason_.empty()) reason_ = std::move(reason);
    XML_StopParser(parser_.get(), XML_FALSE);
  }

  [[noreturn]] void Refuse() {
    const XML_Error error = XML_GetErrorCode(parser_.get());
    if (error == XML_ERROR_NO_MEMORY) throw std::bad_alloc();
    if (reason_.empty()) reason_ = std::string("it is not well-formed XML: ") + XML_ErrorString(error);
    const std::string line = std::to_string(XML_GetCurrentLineNumber(parser_.get()));
    RaiseBadPart(source_.file, source_.part, reason_ + " (line " + line + ")");
  }

  const XmlSource& source_;
  const XmlLimits& limits_;
  std::unique_ptr<std::remove_pointer_t<XML_Parser>, FreeParser> parser_;
  std::vector<std::uint64_t> openAttributes_;  // of each open element, with those around it
  std::uint64_t declarations_ = 0;             // of the element that comes next
  std::uint64_t nodes_ = 0;
  std::string reason_;
};

// What the gate let pass begins in one of these ways; the tree's own guess would be wider.
pugi::xml_encoding EncodingOf(std::string_view bytes) {
  using namespace std::string_view_literals;
  if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("<\0"sv)) return pugi::encoding_utf16_le;
  if (bytes.starts_with("\xFE\xFF") || bytes.starts_with("\0<"sv)) return pugi::encoding_utf16_be;
  return pugi::encoding_utf8;
}

class TreeWriter final : public pugi::xml_writer {
 public:
  explicit TreeWriter(PartSink& sink) : sink_(sink) {}
  void write(const void* data, std::size_t size) override { sink_.Append({static_cast<const char*>(data), size}); }

 private:
  PartSink& sink_;
};

}  // namespace

void RequireSoundXml(std::string_view bytes, const XmlSource& source, const XmlLimits& limits) {
  Gate(source, limits).Check(bytes);
}

pugi::xml_document ParseXml(std::string_view bytes, const XmlSource& source, const XmlLimits& limits) {
  RequireSoundXml(bytes, source, limits);
  // The defaults would drop texts of blanks only. A line end is a line feed for every reader of XML, however it is
  // stored; a CR that is meant is a character reference.
  constexpr unsigned kOptions = (pugi::parse_full | pugi::parse_ws_pcdata) & ~unsigned{pugi::parse_doctype};
  pugi::xml_document document;
  const pugi::xml_parse_result result = document.load_buffer(bytes.data(), bytes.size(), kOptions, EncodingOf(bytes));
  if (result.status == pugi::status_out_of_memory) throw std::bad_alloc();
  if (!result)
    RaiseBadPart(source.file, source.part, std::string("it is not well-formed XML: ") + result.description());
  return document;
}

void WriteXml(const pugi::xml_node& node, PartSink& sink) {
  TreeWriter writer(sink);
  constexpr unsigned kFormat = pugi::format_raw | pugi::format_no_declaration;
  if (node.type() != pugi::node_document) {
    node.print(writer, "", kFormat, pugi::encoding_utf8);
    return;
  }
  // The declaration of the original may name another encoding.
  sink.Append("<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\r\n");
  for (const pugi::xml_node& child : node.children()) {
    if (child.type() != pugi::node_declaration) child.print(writer, "", kFormat, pugi::encoding_utf8);
  }
}

std::string XmlBytes(const pugi::xml_node& node) {
  StringSink sink;
  WriteXml(node, sink);
  return sink.TakeBytes();
}

}  // namespace zorkanca
