// Measures a mail merge: makes a template and a data file, merges, saves, and prints seconds and the peak of memory.
//
//   word_merge_bench letters|catalog RECORDS [FOLDER]
//
// letters: ten paragraphs with 30 merge fields and a header with one. catalog: a heading block, a line, a closing
// block; the repeated blocks are deleted as the export does it.
#include <sys/resource.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include "opc/package.h"
#include "opc/relationships.h"
#include "runtime/utf8.h"
#include "word/word_engine.h"

namespace {

using namespace zorkanca;

constexpr int kFields = 30;
constexpr const char* kWord = "http://schemas.openxmlformats.org/wordprocessingml/2006/main";
constexpr const char* kIds = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";

std::string Run(const std::string& text) {
  return "<w:r><w:rPr><w:lang w:val=\"cs-CZ\"/></w:rPr><w:t xml:space=\"preserve\">" + text + "</w:t></w:r>";
}

std::string Field(int number) {
  const std::string name = "F" + std::to_string(number);
  return "<w:r><w:fldChar w:fldCharType=\"begin\"/></w:r><w:r><w:instrText xml:space=\"preserve\"> MERGEFIELD " + name +
         " </w:instrText></w:r><w:r><w:fldChar w:fldCharType=\"separate\"/></w:r>" + Run("«" + name + "»") +
         "<w:r><w:fldChar w:fldCharType=\"end\"/></w:r>";
}

std::string Letter() {
  std::string body;
  for (int paragraph = 0; paragraph < 10; ++paragraph) {
    body += "<w:p>";
    for (int i = 0; i < 3; ++i) body += Run("Vážený zákazníku, sdělujeme Vám ") + Field(paragraph * 3 + i);
    body += "</w:p>";
  }
  return body +
         "<w:sectPr><w:headerReference w:type=\"default\" r:id=\"rId1\"/><w:pgSz w:w=\"11906\" "
         "w:h=\"16838\"/></w:sectPr>";
}

std::string Catalog() {
  return "<w:p>" + Run("{&lt;h}Ceník") + "</w:p><w:p>" + Run("{h&gt;}") + Field(0) + Run(" ") + Field(1) + Run(" ") +
         Field(2) + "</w:p><w:p>" + Run("{&lt;p}Konec{p&gt;}") + "</w:p><w:sectPr/>";
}

void WriteTemplate(const std::string& path, bool letters) {
  const std::string root = std::string(" xmlns:w=\"") + kWord + "\" xmlns:r=\"" + kIds + "\">";
  const std::string type = "application/vnd.openxmlformats-officedocument.wordprocessingml.";
  Package package;
  package.AddPart("/word/document.xml", type + "document.main+xml",
                  "<w:document" + root + "<w:body>" + (letters ? Letter() : Catalog()) + "</w:body></w:document>");
  package.AddPart("/word/header1.xml", type + "header+xml", "<w:hdr" + root + "<w:p>" + Field(0) + "</w:p></w:hdr>");
  Relationships top("/");
  top.Add(OfficeRelationshipType("officeDocument"), "/word/document.xml");
  package.SetRelationships(top);
  Relationships main("/word/document.xml");
  main.Add(OfficeRelationshipType("header"), "/word/header1.xml");
  package.SetRelationships(main);
  package.SaveAs(path);
}

void WriteData(const std::string& path, int records) {
  std::ofstream file(path, std::ios::binary);
  const auto write = [&file](const std::string& line) {
    const Text text = FromUtf8(line);
    file.write(reinterpret_cast<const char*>(text.data()), static_cast<std::streamsize>(text.size() * 2));
  };
  file.write("\xFF\xFE", 2);
  for (int record = -1; record < records; ++record) {
    std::string line;
    for (int i = 0; i < kFields; ++i) {
      if (i > 0) line += ';';
      line += "F" + std::to_string(i);
      if (record >= 0) line += " hodnota záznamu " + std::to_string(record);
    }
    write(line + "\r\n");
  }
}

class Stopwatch {
 public:
  void Print(const char* what) {
    const auto now = std::chrono::steady_clock::now();
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::printf("%-8s %7.2f s   peak %ld MB\n", what, std::chrono::duration<double>(now - start_).count(),
                usage.ru_maxrss / 1024);
    start_ = now;
  }

 private:
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

// From a marker on, or backwards up to it: the range of its next occurrence.
bool FindFrom(WordDocument& document, std::int32_t start, std::int32_t end, TextView marker, bool forward,
              std::int32_t& foundStart, std::int32_t& foundEnd) {
  const auto range = document.Range(start, end);
  if (!range->Find({.FindText = Text(marker), .MatchCase = true, .Forward = forward})) return false;
  foundStart = range->Start();
  foundEnd = range->End();
  return true;
}

void DeleteBlocks(WordDocument& document) {
  std::int32_t start = 0, end = 0, innerStart = 0, innerEnd = 0;
  const auto length = [&] { return document.Content()->End(); };
  if (FindFrom(document, 0, length(), u"{<h}", true, start, end)) document.Range(start, end)->Delete();
  if (FindFrom(document, start, length(), u"{h>}", true, start, end)) document.Range(start, end)->Delete();
  while (FindFrom(document, start, length(), u"{<h}", true, start, end) &&
         FindFrom(document, end, length(), u"{h>}", true, innerStart, innerEnd)) {
    document.Range(start, innerEnd)->Delete();
  }
  if (FindFrom(document, 0, length(), u"{p>}", false, start, end)) document.Range(start, end)->Delete();
  if (FindFrom(document, 0, start, u"{<p}", false, start, end)) document.Range(start, end)->Delete();
  while (FindFrom(document, 0, start, u"{p>}", false, innerStart, innerEnd) &&
         FindFrom(document, 0, innerStart, u"{<p}", false, start, end)) {
    document.Range(start, innerEnd)->Delete();
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) return std::fprintf(stderr, "word_merge_bench letters|catalog RECORDS [FOLDER]\n"), 2;
  const bool letters = std::string(argv[1]) == "letters";
  const std::string folder = argc > 3 ? argv[3] : "/tmp";
  const std::string data = folder + "/merge_bench.txt";
  WriteTemplate(folder + "/merge_bench.dotx", letters);
  WriteData(data, std::atoi(argv[2]));
  WordEngine engine(*FindLocale(u"cs-CZ"));
  try {
    Stopwatch watch;
    const auto application = engine.StartWord();
    const auto main = application->AddDocument(FromUtf8(folder + "/merge_bench.dotx"), false);
    main->MailMerge().OpenDataSource({.Name = FromUtf8(data)});
    if (!letters) main->MailMerge().MainDocumentType(MainDocumentType::kCatalog);
    watch.Print("open");
    main->MailMerge().Execute(false);
    const auto merged = application->ActiveDocument();
    watch.Print("execute");
    if (!letters) {
      DeleteBlocks(*merged);
    } else {
      merged->Content()->Find({.FindText = u"{<h}", .MatchCase = true});
    }
    watch.Print("search");
    merged->SaveAs(FromUtf8(folder + "/merge_bench.docx"), WordSaveFormat::kDocumentXml);
    watch.Print("save");
  } catch (const Error& error) {
    return std::fprintf(stderr, "%s\n", error.what()), 1;
  }
  return 0;
}
