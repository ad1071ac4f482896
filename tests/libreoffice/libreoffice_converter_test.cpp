// The conversion: a false program that does all that the real one was seen to do, and the real one once.
#include "libreoffice/libreoffice_converter.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/file.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <thread>

#include "files/file_descriptor.h"
#include "libreoffice/conversion_check.h"
#include "opc/package.h"
#include "support/binary_word.h"
#include "support/raw_zip.h"
#include "support/temporary_folder.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

using namespace std::chrono_literals;
using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::StartsWith;

// Reads its arguments as the real one does; what it does with a document, the document's text says. Each call is noted.
constexpr const char* kFalseProgram = R"(#!/bin/sh
here=$(dirname "$0")
echo call >> "$here/calls"
printf '%s\n' "$@" > "$here/arguments"
while [ $# -gt 0 ]; do
  case "$1" in
    --outdir) out=$2; shift 2;;
    --convert-to) filter=$2; shift 2;;
    -*) shift;;
    *) break;;
  esac
done
for document in "$@"; do
  name=$(basename "$document"); result="$out/${name%.*}.pdf"
  case "$filter" in docx*) cp "$here/result.docx" "$out/${name%.*}.docx"; continue;; esac
  if grep -q CRASH "$document"; then kill -9 $$; fi
  if grep -q NOTHING "$document"; then echo "Error: source file could not be loaded" >&2; continue; fi
  if grep -q GARBAGE "$document"; then echo "%PDF-1.6 and no page" > "$result"; continue; fi
  if grep -q CUT "$document"; then printf '%%PDF-1.6\n/Type/Page \n' > "$result"; continue; fi
  if grep -q HANG "$document"; then
    trap '' TERM
    sleep 600 & echo $! > "$here/helper"
    while :; do sleep 1; done
  fi
  printf '%%PDF-1.6\n<</Type/Pages>>\n<</Type /Page/X 1>>\n%%%%EOF\n' > "$result"
done
exit 0
)";

bool IsRunning(pid_t process) {
  std::ifstream file("/proc/" + std::to_string(process) + "/stat");
  std::string stat;
  std::getline(file, stat);
  return !stat.empty() && stat.find(") Z") == stat.npos;
}

class Converter : public ::testing::Test {
 protected:
  Converter() {
    folder_.Write("soffice", kFalseProgram);
    std::filesystem::permissions(folder_.Path("soffice"), std::filesystem::perms::owner_all);
    settings_ = {.program = folder_.Path("soffice"),
                 .folder = folder_.Path("private"),
                 .patience = 20s,
                 .isolateNetwork = false,
                 .localeTag = {},
                 .cancelled = {},
                 .warn = [this](TextView text) { warnings_ += ToUtf8(text) + "\n"; }};
  }

  std::string Document(const std::string& name, const std::string& text) {
    folder_.Write(name, "{\\rtf1 " + text + "}");
    return folder_.Path(name);
  }
  Error FailureOf(const std::string& text) {
    const std::string source = Document("a.rtf", text);
    folder_.Write("a.pdf", "old");
    const Error error = ErrorOf([&] { LibreOfficeConverter(settings_).ToPdf(source, folder_.Path("a.pdf")); });
    EXPECT_EQ(folder_.Read("a.pdf"), "old") << text;
    ExpectNothingLeft();
    return error;
  }
  void ExpectNothingLeft() {
    for (const auto& entry : std::filesystem::directory_iterator(folder_.Path("private"))) {
      EXPECT_THAT(entry.path().filename().native(), StartsWith("profile-"));
    }
  }
  std::ptrdiff_t Calls() {
    const std::string calls = folder_.Read("calls");
    return std::count(calls.begin(), calls.end(), '\n');
  }

  TemporaryFolder folder_;
  LibreOfficeConverter::Settings settings_;
  std::string warnings_;
};

TEST_F(Converter, ThePrivateProfileAndFolderAreAllThatTheProgramIsGiven) {
  const std::string source = Document("-a 'b'\n*$(id);#%41.RTF", "x");
  settings_.localeTag = "sk-SK";
  LibreOfficeConverter(settings_).ToPdf(source, folder_.Path("out.pdf"),
                                        {.archive = true, .bookmarks = PdfBookmarks::kNone, .tagged = true});
  EXPECT_THAT(folder_.Read("out.pdf"), StartsWith("%PDF-1.6"));
  const std::string arguments = folder_.Read("arguments");
  EXPECT_THAT(arguments, StartsWith("-env:UserInstallation=file://" + folder_.Path("private/profile-0\n--headless\n")));
  EXPECT_THAT(arguments, HasSubstr(R"(pdf:writer_pdf_Export:{"SelectPdfVersion":{"type":"long","value":"1"},)"
                                   R"("ExportBookmarks":{"type":"boolean","value":"false"},)"
                                   R"("ExportBookmarksToPDFDestination":{"type":"boolean","value":"false"},)"
                                   R"("UseTaggedPDF":{"type":"boolean","value":"true"}})"));
  EXPECT_THAT(arguments, ::testing::EndsWith("/in/0.rtf\n"));
  const std::string profile = folder_.Read("private/profile-0/user/registrymodifications.xcu");
  EXPECT_THAT(profile, AllOf(HasSubstr("BlockUntrustedRefererLinks\" oor:op=\"fuse\"><value>true"),
                             HasSubstr("MacroSecurityLevel\" oor:op=\"fuse\"><value>3"),
                             HasSubstr("ooSetupLastVersion\" oor:op=\"fuse\"><value>99.9<"),
                             HasSubstr("ooSetupSystemLocale\" oor:op=\"fuse\"><value>sk-SK<")));
  EXPECT_EQ(folder_.Mode("private/profile-0"), 0700u);
  ExpectNothingLeft();

  // A profile in use is left alone.
  const FileDescriptor lock(open(folder_.Path("private/profile-0.lock").c_str(), O_RDWR));
  flock(lock.get(), LOCK_EX);
  LibreOfficeConverter(settings_).ToPdf(source, folder_.Path("out.pdf"));
  EXPECT_THAT(folder_.Read("arguments"), HasSubstr("/private/profile-1\n"));
}

TEST_F(Converter, AnExitCodeOfZeroProvesNothing) {
  const Error nothing = FailureOf("NOTHING");
  EXPECT_EQ(nothing.number(), 5);
  EXPECT_EQ(Shown(nothing.description()),
            "LibreOffice could not convert " + folder_.Path("a.rtf") +
                ": it left no usable result (it said: Error: source file could not be loaded)");
  for (const char* text : {"GARBAGE", "CUT", "CRASH"}) {
    EXPECT_THAT(Shown(FailureOf(text).description()), HasSubstr("no usable result")) << text;
  }
}

TEST_F(Converter, WhatHangsIsEndedWithAllItsHelpers) {
  settings_.patience = 500ms;
  EXPECT_THAT(Shown(FailureOf("HANG").description()), HasSubstr("did not come to an end in time"));
  const auto helper = static_cast<pid_t>(std::stol(folder_.Read("helper")));
  for (int i = 0; i < 100 && IsRunning(helper); ++i) std::this_thread::sleep_for(10ms);  // until the signal arrives
  EXPECT_FALSE(IsRunning(helper));
  EXPECT_FALSE(folder_.Has("private/profile-0"));  // not used again

  settings_.patience = 20s;
  settings_.cancelled = [] { return true; };
  EXPECT_EQ(FailureOf("HANG").number(), 18);
}

TEST_F(Converter, OneBadDocumentOfABatchDoesNotStopTheOthers) {
  std::vector<Conversion> documents;
  for (const char* text : {"x", "CRASH", "y", "NOTHING", "z"}) {
    const std::string name = std::to_string(documents.size());
    documents.push_back({Document(name + ".rtf", text), folder_.Path(name + ".pdf")});
  }
  documents.push_back({folder_.Path("missing.rtf"), folder_.Path("5.pdf")});
  documents.push_back({Document("6.rtf", "x"), folder_.Path("no folder/6.pdf")});
  const std::vector<std::optional<Error>> results = LibreOfficeConverter(settings_).ToPdf(documents);
  std::string numbers;
  for (const std::optional<Error>& error : results) numbers += std::to_string(error ? error->number() : 0) + " ";
  EXPECT_EQ(numbers, "0 5 0 5 0 53 76 ");
  EXPECT_TRUE(folder_.Has("0.pdf") && folder_.Has("2.pdf") && folder_.Has("4.pdf"));
  EXPECT_EQ(Calls(), 4);  // all; the one that crashed; the rest; the one that gave nothing

  std::vector<Conversion> hopeless;
  for (int i = 0; i < 10; ++i) {
    hopeless.push_back({Document("h" + std::to_string(i) + ".rtf", "NOTHING"), folder_.Path("h.pdf")});
  }
  for (const auto& error : LibreOfficeConverter(settings_).ToPdf(hopeless)) EXPECT_TRUE(error);
  EXPECT_EQ(Calls(), 6);  // it is not tried ten times
}

TEST_F(Converter, ADocumentThatLosesItsMarkedFieldsIsConvertedAsItWas) {
  folder_.Write("result.docx", RawZip(SmallDocument("old")));
  folder_.Write("one.doc", BinaryWordBytes({{{u"{ MERGEFIELD a \\# 0|1}"}}}));
  LibreOfficeConverter(settings_).ToOpenXml(folder_.Path("one.doc"), folder_.Path("out.docx"));
  EXPECT_EQ(Calls(), 2);
  EXPECT_THAT(folder_.Read("arguments"), ::testing::EndsWith("/in/0.doc\n"));
  EXPECT_TRUE(IsWholePackage(folder_.Path("out.docx")));
  EXPECT_EQ(warnings_, "Fields of " + folder_.Path("one.doc") +
                           " may have lost their formats and conditions: LibreOffice did not bring them through.\n");

  // Marked, brought through, and some that cannot be.
  warnings_.clear();
  folder_.Write("result.docx", RawZip(SmallDocument("ƒ MERGEFIELD a \\# 0˜1‡")));
  folder_.Write("one.doc", BinaryWordBytes({{{u"{FORMTEXT|{DATE|x}}{ M |y}"}}, {}, {70, 31, 59}}));
  LibreOfficeConverter(settings_).ToOpenXml(folder_.Path("one.doc"), folder_.Path("out.docx"));
  EXPECT_EQ(Calls(), 3);
  EXPECT_THAT(folder_.Read("arguments"), ::testing::EndsWith("/marked/0.doc\n"));
  EXPECT_THAT(warnings_, HasSubstr("conditions: some stand inside of form fields or objects."));

  // Nothing to keep, and nothing that can be read.
  warnings_.clear();
  folder_.Write("one.doc", BinaryWordBytes({{{u"{PAGE|1}"}}, {}, {33}}));
  folder_.Write("two.doc", "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1 and no more");
  for (const char* name : {"one.doc", "two.doc"}) {
    LibreOfficeConverter(settings_).ToOpenXml(folder_.Path(name), folder_.Path("out.docx"));
  }
  EXPECT_EQ(Calls(), 5);
  EXPECT_EQ(warnings_, "Fields of " + folder_.Path("two.doc") +
                           " may have lost their formats and conditions: the file is damaged.\n");
}

TEST_F(Converter, NobodyIsWarnedOfADocumentThatFails) {
  folder_.Write("one.doc", BinaryWordBytes({{{u"{ MERGEFIELD a|1}"}}}));
  folder_.Write("two.doc", "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1 and no more");
  for (const char* name : {"one.doc", "two.doc"}) {
    const Error error =
        ErrorOf([&] { LibreOfficeConverter(settings_).ToOpenXml(folder_.Path(name), folder_.Path("out.docx")); });
    EXPECT_THAT(Shown(error.description()), HasSubstr("no usable result")) << name;
  }
  EXPECT_EQ(warnings_, "");
}

TEST_F(Converter, FieldsOfOtherFormatsAreKeptOrTold) {
  const std::string xml =
      "<?xml version=\"1.0\"?><w:wordDocument xmlns:w=\"http://schemas.microsoft.com/office/word/2003/wordml\">"
      "<w:body><w:fldSimple w:instr=\"DATE\"/></w:body></w:wordDocument>";
  folder_.Write("result.docx", RawZip(SmallDocument("\uE013DATE\uE015\uE016")));
  folder_.Write("a.rtf", "{\\rtf1{\\field{\\*\\fldinst DATE}{\\fldrslt}}}");
  folder_.Write("a.xml", xml);
  for (const char* name : {"a.rtf", "a.xml"}) {
    LibreOfficeConverter(settings_).ToOpenXml(folder_.Path(name), folder_.Path("out.docx"));
    EXPECT_THAT(folder_.Read("arguments"), HasSubstr("/marked/0.")) << name;
    const Package package = Package::Open(folder_.Path("out.docx"));
    EXPECT_THAT(package.ReadPart(package.MainPart()), HasSubstr("<w:instrText xml:space=\"preserve\">DATE<")) << name;
  }
  EXPECT_EQ(warnings_, "");

  const std::string content = "<x xmlns=\"urn:oasis:names:tc:opendocument:xmlns:office:1.0\"><text:database-next/></x>";
  folder_.Write("a.odt", RawZip({{"mimetype", "application/vnd.oasis.opendocument.text"}, {"content.xml", content}}));
  folder_.Write("a.fodt", content);
  folder_.Write("damaged.xml", xml + "<");
  folder_.Write("package.xml", "<x xmlns=\"http://schemas.microsoft.com/office/2006/xmlPackage\"/>");
  folder_.Write("page.doc", "<x xmlns=\"urn:schemas-microsoft-com:office:word\" style=\"mso-element:field-begin\"/>");
  folder_.Write("plain.doc", "<x xmlns=\"urn:schemas-microsoft-com:office:word\"/>");
  for (const char* name : {"a.odt", "a.fodt", "damaged.xml", "package.xml", "page.doc", "plain.doc"}) {
    LibreOfficeConverter(settings_).ToOpenXml(folder_.Path(name), folder_.Path("out.docx"));
    EXPECT_THAT(folder_.Read("arguments"), HasSubstr("/in/0.")) << name;
  }
  const std::string told = " may have lost their formats and conditions: ";
  const std::string next = told + "LibreOffice does not bring through its next record (1).\n";
  EXPECT_EQ(warnings_, "Fields of " + folder_.Path("a.odt") + next + "Fields of " + folder_.Path("a.fodt") + next +
                           "Fields of " + folder_.Path("damaged.xml") + told +
                           "its XML is not sound or larger than we read.\nFields of " + folder_.Path("package.xml") +
                           told + "it is a package written as one XML file.\nFields of " + folder_.Path("page.doc") +
                           told + "it is a web page.\n");
}

TEST_F(Converter, UnsoundDocumentsNeverReachTheProgram) {
  folder_.Write("empty.docx", "");
  folder_.Write("cut.docx", RawZip(SmallDocument("x")).substr(0, 500));
  folder_.Write("text.csv", "=1+1;2");
  std::vector<RawEntry> entities = SmallDocument("x");
  entities[2].data = "<!DOCTYPE w [<!ENTITY x 'y'>]><w/>";
  folder_.Write("entities.docx", RawZip(entities));
  for (const char* name : {"empty.docx", "cut.docx", "text.csv", "entities.docx"}) {
    const Error error =
        ErrorOf([&] { LibreOfficeConverter(settings_).ToPdf(folder_.Path(name), folder_.Path("x.pdf")); });
    EXPECT_THAT(Shown(error.description()), HasSubstr(std::string(name) + " is not an Office document: "));
  }
  EXPECT_EQ(Calls(), 0);
  settings_.program = folder_.Path("none");
  const Error missing =
      ErrorOf([&] { LibreOfficeConverter(settings_).ToPdf(Document("a.rtf", "x"), folder_.Path("x.pdf")); });
  EXPECT_EQ(missing.number(), 429);
  EXPECT_THAT(Shown(missing.description()), HasSubstr("is not installed"));
}

TEST_F(Converter, TheRealProgramMakesPdfAndReadsOtherFormats) {
  settings_.program.clear();
  settings_.isolateNetwork = true;
  settings_.patience = 120s;
  const LibreOfficeConverter converter(settings_);
  folder_.Write("new.docx", RawZip(SmallDocument("Vzor")));
  const std::string old = Document("old.rtf", "Ahoj \\b sv\\'ec\\'ec\\b0 te");
  const std::vector<Conversion> documents = {{folder_.Path("new.docx"), folder_.Path("1.pdf")},
                                             {old, folder_.Path("2.pdf")}};
  for (const auto& error : converter.ToPdf(documents)) EXPECT_FALSE(error) << error->what();
  EXPECT_TRUE(IsWholePdf(folder_.Path("1.pdf")));
  EXPECT_TRUE(IsWholePdf(folder_.Path("2.pdf")));
  EXPECT_FALSE(folder_.Has("private/profile-0/user/GraphicsRenderTests.log")) << "drawing was tested at the start";
  converter.ToOpenXml(old, folder_.Path("old.docx"));
  const Package package = Package::Open(folder_.Path("old.docx"));
  EXPECT_EQ(package.MainPart(), "/word/document.xml");
  EXPECT_THAT(package.ReadPart(package.MainPart()), HasSubstr("Ahoj"));
  ExpectNothingLeft();
}

}  // namespace
}  // namespace zorkanca::testing
