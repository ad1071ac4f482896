// Documents told apart by their first bytes.
#include "opc/document_kind.h"

#include <gtest/gtest.h>

#include "support/raw_zip.h"
#include "support/temporary_folder.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

TEST(DocumentKinds, AreKnownByTheirFirstBytes) {
  const std::string compound = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";
  const std::pair<std::string, DocumentKind> rows[] = {
      {RawZip(SmallDocument("x")), DocumentKind::kPackage},
      {RawZip({{"mimetype", "application/vnd.oasis.opendocument.text"}, {"content.xml", "x"}}),
       DocumentKind::kOpenDocument},
      {RawZip({{"content.xml", "x"}, {"mimetype", "application/vnd.oasis.opendocument.text"}}), DocumentKind::kPackage},
      {RawZip({{"mimetype", "text/plain"}}), DocumentKind::kPackage},
      {"PK\x03\x04", DocumentKind::kPackage},
      {"PK\x05\x06", DocumentKind::kOther},
      {compound + std::string(600, '\0'), DocumentKind::kCompound},
      {compound, DocumentKind::kCompound},
      {compound.substr(0, 7), DocumentKind::kOther},
      {"{\\rtf1\\ansi x}", DocumentKind::kRichText},
      {"{\\rt", DocumentKind::kOther},
      {" {\\rtf1}", DocumentKind::kOther},
      {"<?xml version=\"1.0\"?><a/>", DocumentKind::kOther},
      {"", DocumentKind::kOther},
  };
  const TemporaryFolder folder;
  for (const auto& [bytes, kind] : rows) {
    folder.Write("d", bytes);
    EXPECT_EQ(DocumentKindOf(folder.Path("d")), kind) << bytes.substr(0, 40);
  }
  EXPECT_EQ(ErrorOf([&] { DocumentKindOf(folder.Path("none")); }).number(), 53);
  EXPECT_EQ(ErrorOf([&] { DocumentKindOf(folder.path()); }).number(), 75);
}

}  // namespace
}  // namespace zorkanca::testing
