// The plain export by libxlsxwriter in its constant-memory mode, for bench/excel_engine.py: the same rows, texts,
// number formats and formats from the same file.
//
//   xlsxwriter_rows DATA RESULT
#include <xlsxwriter.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>
#include <vector>

namespace {

// The characters of the code page 1250 that the data have.
std::string Utf8(const std::string& bytes) {
  std::string text;
  for (const char c : bytes) {
    switch (static_cast<unsigned char>(c)) {
      case 0xC8:
        text += "Č";
        break;
      case 0xED:
        text += "í";
        break;
      case 0xE1:
        text += "á";
        break;
      case 0x9E:
        text += "ž";
        break;
      case 0x8A:
        text += "Š";
        break;
      case 0xE8:
        text += "č";
        break;
      case 0xFD:
        text += "ý";
        break;
      default:
        text += c;
    }
  }
  return text;
}

// One line, split at semicolons outside of quotes.
void Split(const std::string& line, std::vector<std::string>& fields) {
  fields.assign(1, {});
  bool quoted = false;
  for (const char c : line) {
    if (c == '"') {
      quoted = !quoted;
    } else if (c == ';' && !quoted) {
      fields.emplace_back();
    } else if (c != '\r') {
      fields.back() += c;
    }
  }
}

double Number(const std::string& text) {
  std::string plain;
  for (const char c : text) {
    if (c == ',') plain += '.';
    if ((c >= '0' && c <= '9') || c == '-') plain += c;
  }
  return std::strtod(plain.c_str(), nullptr);
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 3) return 2;
  std::ifstream data(arguments[1], std::ios::binary);
  lxw_workbook_options options{};
  options.constant_memory = LXW_TRUE;
  lxw_workbook* workbook = workbook_new_opt(arguments[2], &options);
  lxw_worksheet* sheet = workbook_add_worksheet(workbook, nullptr);
  lxw_format* header = workbook_add_format(workbook);
  format_set_bold(header);
  format_set_align(header, LXW_ALIGN_CENTER);
  lxw_format* text = workbook_add_format(workbook);
  format_set_num_format_index(text, 49);
  format_set_align(text, LXW_ALIGN_LEFT);
  const auto number = [&](std::uint8_t format) {
    lxw_format* made = workbook_add_format(workbook);
    format_set_num_format_index(made, format);
    format_set_align(made, LXW_ALIGN_RIGHT);
    return made;
  };
  lxw_format* plain = number(0);
  lxw_format* grouped = number(4);
  lxw_format* date = number(14);
  for (lxw_col_t column = 0; column < 8; ++column) worksheet_set_column(sheet, column, column, 15, nullptr);
  std::string line;
  std::vector<std::string> fields;
  for (lxw_row_t row = 0; std::getline(data, line); ++row) {
    Split(line, fields);
    for (lxw_col_t column = 0; column < fields.size(); ++column) {
      const std::string& field = fields[column];
      if (field.empty()) continue;
      const bool isText = column == 1 || column == 2 || column == 3 || column == 7;
      if (row == 0 || isText) {
        worksheet_write_string(sheet, row, column, Utf8(field).c_str(), row == 0 ? header : text);
      } else if (column == 6) {
        lxw_datetime day{};
        std::sscanf(field.c_str(), "%d.%d.%d", &day.day, &day.month, &day.year);
        worksheet_write_datetime(sheet, row, column, &day, date);
      } else {
        worksheet_write_number(sheet, row, column, Number(field), column == 5 ? grouped : plain);
      }
    }
  }
  return workbook_close(workbook) == LXW_NO_ERROR ? 0 : 1;
}
