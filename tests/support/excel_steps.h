// What is done to a sheet, as one line of a table of cases:
//
//   repeat R N         rows 1 to R, so that they are there N times, with one paste
//   paste R:S T        copies rows R to S over those from T on
//   fill TYPES DATA    lays an import over A1, contents alone; ";" between fields, "/" between records
//   import TYPES DATA  the same with formats
//   edit CELL TEXT     puts a content, as `Formula` takes it, into a cell; without a text empties it
//   align C HOW        a column, by its number: left, right, center, general
//   bold R:S           rows
//   fit AREA           columns to their contents
//   select AREA
//
// Steps are separated by " | ".
#pragma once

#include "support/excel_parts.h"

namespace zorkanca::testing {

class ExcelSteps {
 public:
  ExcelSteps(ExcelFixture& fixture, ExcelWorksheet& sheet) : fixture_(fixture), sheet_(sheet) {}

  void Run(const std::string& steps) {
    for (std::size_t at = 0; at < steps.size();) {
      const std::size_t end = std::min(steps.find(" | ", at), steps.size());
      RunOne(steps.substr(at, end - at));
      at = end + 3;
    }
  }

 private:
  void RunOne(const std::string& step) {
    std::istringstream words(step);
    std::string verb;
    std::string first;
    words >> verb >> first;
    words >> std::ws;
    std::string rest;
    std::getline(words, rest, '\0');  // all of it
    const Text place = FromUtf8(first);
    if (verb == "repeat") {
      ExcelFixture::Repeat(sheet_, std::atoi(first.c_str()), std::atoi(rest.c_str()));
    } else if (verb == "paste") {
      sheet_.Rows(place)->Copy();
      sheet_.Range(u"A" + FromUtf8(rest))->Select();
      sheet_.Paste();
    } else if (verb == "fill") {
      fixture_.Fill(sheet_, DataOf(rest), first);
    } else if (verb == "import") {
      const ExcelWorkbookReference import = fixture_.Import(DataOf(rest), first);
      import->Sheets(1)->Range(u"A1")->CurrentRegion()->Copy(*sheet_.Range(u"A1"));
      import->Close(false);
    } else if (verb == "edit") {
      sheet_.Range(place)->Formula(FromUtf8(rest));
    } else if (verb == "align") {
      sheet_.Columns(std::atoi(first.c_str()))->HorizontalAlignment(AlignmentOf(rest));
    } else if (verb == "bold") {
      sheet_.Rows(place)->FontBold(true);
    } else if (verb == "fit") {
      sheet_.Range(place)->AutoFitColumns();
    } else if (verb == "select") {
      sheet_.Range(place)->Select();
    } else {
      ADD_FAILURE() << "no such step: " << step;
    }
  }

  static std::string DataOf(const std::string& records) {
    std::string data;
    for (const char c : records) data += c == '/' ? "\r\n" : std::string(1, c);
    return data + "\r\n";
  }
  static ExcelAlignment AlignmentOf(const std::string& name) {
    if (name == "left") return ExcelAlignment::kLeft;
    if (name == "right") return ExcelAlignment::kRight;
    return name == "center" ? ExcelAlignment::kCenter : ExcelAlignment::kGeneral;
  }

  ExcelFixture& fixture_;
  ExcelWorksheet& sheet_;
};

}  // namespace zorkanca::testing
