// An Office package (ECMA-376 part 2): parts with names and content types, tied by relationships, in a ZIP archive.
//
// Part names begin with "/" ("/word/document.xml") and are compared ignoring the case of A to Z. What nobody touches is
// copied to the output byte for byte, compressed as it was, in the order of the original. A package in strict
// namespaces reads as if it were in the usual ones, and is written so (strict_names.h).
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <variant>
#include <vector>

#include "opc/content_types.h"
#include "opc/deflated_part.h"
#include "opc/part_sink.h"
#include "opc/relationships.h"
#include "opc/zip_reader.h"
#include "opc/zip_writer.h"
#include "textfiles/byte_sink.h"

namespace zorkanca {

/// Writes a part when the package is saved; called once per save.
using PartProducer = std::function<void(PartSink&)>;
/// New content of a part: bytes at hand, a stream that was compressed ahead, or a producer.
using PartContent = std::variant<std::string, std::shared_ptr<const DeflatedPart>, PartProducer>;

/// A package being read and changed. Copies are cheap and independent: they share the opened file and the unchanged
/// contents, so that one template gives many documents. The opened file may be replaced meanwhile.
class Package {
 public:
  using Take = ZipReader::Take;

  /// The name of the package as a source of relationships.
  static constexpr std::string_view kRoot = "/";

  /// An empty package.
  Package() = default;
  /// Opens a package and reads its content types.
  /// @param path  native path
  /// Errors: 5 "... is not an Office document: ..." also for passwords and binary documents of earlier versions; 53,
  /// 70, 75, 76 when the file cannot be read.
  static Package Open(const std::string& path, const ZipLimits& limits = {});

  /// The path it was opened from, "" for a new one.
  const std::string& path() const;

  /// Names of all parts in the order they will be written, without [Content_Types].xml, with those that hold
  /// relationships.
  std::vector<std::string> PartNames() const;
  bool HasPart(std::string_view part) const;

  /// The bytes of a part. Errors: 5 for a missing or damaged part, and for one that a producer writes only when saved.
  std::string ReadPart(std::string_view part) const;
  /// The same piece by piece, for parts that are not to be held in memory.
  void StreamPart(std::string_view part, const Take& take) const;

  /// Content type, "" when the package gives none.
  std::string ContentTypeOf(std::string_view part) const { return contentTypes_.TypeOf(part); }
  /// Changes a part's content type.
  void SetContentType(std::string_view part, std::string_view type);

  /// Adds a part at the end. Errors: 5 when the name is taken or no name of a part.
  void AddPart(std::string_view part, std::string_view contentType, PartContent content);
  /// Gives a part new content at its old place. Errors: 5 for a missing part.
  void ReplacePart(std::string_view part, PartContent content);
  /// Removes a part, its content type and its own relationships; those that lead to it stay with their sources.
  /// A missing part is no error.
  void RemovePart(std::string_view part);
  /// A name that no part has and that was not given out before: the pattern with a number in place of "#",
  /// "/word/header#.xml".
  std::string FreshPartName(std::string_view pattern);

  /// The relationships of a part or of the package (`kRoot`); an empty list when there are none.
  /// Errors: 5 for a damaged list.
  Relationships RelationshipsOf(std::string_view source) const;
  /// Writes a changed list back; an empty one removes the part that held it.
  void SetRelationships(const Relationships& relationships);
  /// The main part: where the package's "officeDocument" relationship leads. Errors: 5 when there is none.
  std::string MainPart() const;
  /// The first part that a source's relationship of this office kind leads to ("styles", "settings"), if it is there.
  std::optional<std::string> RelatedPart(std::string_view source, std::string_view kind) const;

  /// Writes the package; the sink's `Commit` stays with the caller.
  void WriteTo(ByteSink& sink) const;
  /// Writes the package whole to a path, or not at all. Errors: those of the file system.
  void SaveAs(const std::string& path) const;

 private:
  struct Item {
    std::string name;                    // of the entry, without leading "/"
    const ZipEntry* original = nullptr;  // in zip_, while nobody changed it
    std::shared_ptr<const PartContent> content;
  };

  const Item* Find(std::string_view part) const;
  const Item& Require(std::string_view part) const;
  void StreamOriginal(const Item& item, const Take& take) const;
  bool IsTranslated(const Item& item) const;
  bool IsStrict() const;
  void WriteItem(ZipWriter& writer, const Item& item) const;
  void Index();

  std::shared_ptr<const ZipReader> zip_;
  std::vector<Item> items_;
  std::unordered_map<std::string, std::size_t> index_;        // lower-case part name -> item
  std::unordered_map<std::string, std::size_t> lastNumbers_;  // of fresh names, by pattern
  ContentTypes contentTypes_;
  bool contentTypesChanged_ = true;
  bool strict_ = false;  // what was opened is in strict namespaces
};

}  // namespace zorkanca
