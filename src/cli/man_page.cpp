#include "cli/man_page.h"

#include <cctype>
#include <string_view>

#include "cli/help.h"

namespace zorkanca::cli {

namespace {

// A text in which nothing is a request: "-" is the one that can be copied, lines do not begin with "." or "'".
std::string Escaped(std::string_view text) {
  std::string escaped;
  bool lineStarts = true;
  for (const char byte : text) {
    if (lineStarts && (byte == '.' || byte == '\'')) escaped += "\\&";
    if (byte == '\\') {
      escaped += "\\e";
    } else if (byte == '\'') {
      escaped += "\\(aq";
    } else if (byte == '-') {
      escaped += "\\-";
    } else {
      escaped += byte;
    }
    lineStarts = byte == '\n';
  }
  return escaped;
}

// A description as a sentence.
std::string Sentence(std::string text) {
  text.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(text.front())));
  return Escaped(text) + ".\n";
}

std::string Options(const std::vector<OptionPage>& options) {
  std::string page;
  for (const OptionPage& option : options) {
    page += ".TP\n.B " + Escaped(TitleOf(option)) + "\n" + Sentence(DescriptionOf(option));
  }
  return page;
}

std::string Examples(const CommandPage& command) {
  std::string page;
  for (const Example& example : command.examples) {
    page += ".PP\n" + Escaped(example.what) + ":\n.PP\n.nf\n.RS\nzorkanca " + Escaped(example.line) + "\n.RE\n.fi\n";
  }
  return page;
}

std::string Commands(const CommandPage& group) {
  std::string page;
  for (const CommandPage& command : group.commands) {
    page += ".SS zorkanca " + Escaped(command.path) + "\n" + Escaped(command.description) + ".\n.PP\n.B " +
            Escaped(UsageOf(command)) + "\n" + Options(command.values) + Options(command.options) + Examples(command);
    page += Commands(command);
  }
  return page;
}

constexpr const char* kStart = R"(.TH ZORKANCA 1 "" "zorKancA )" ZORKANCA_VERSION R"(" "User commands"
.SH NAME
zorkanca \- moves data out of a database into office documents
.SH SYNOPSIS
.B zorkanca
.RI [ "global options" ]
.I COMMAND
.RI [ options ]
.SH DESCRIPTION
Runs a query over a database and writes the rows into Word documents, Excel workbooks, HTML tables or PDF, from
templates that keep their looks.
No office package is needed, except LibreOffice for PDF and for documents in legacy binary formats.
.PP
Standard output carries results only: the absolute path of each file produced, one a line, or the value asked for.
Messages, questions and progress go to standard error.
.PP
An argument that begins with \- and stands where a value is expected is a value; after \-\- everything is.
Global options may stand before the command or among its own.
)";

constexpr const char* kEnd = R"(.SH EXIT STATUS
.TP
.B 0
Done.
.TP
.B 1
The operation failed; a message says why.
.TP
.B 2
Wrong usage.
.TP
.B 130
Cancelled with Ctrl\-C. A second Ctrl\-C ends the program at once.
.SH ENVIRONMENT
.TP
.B ZORKANCA_HOME
Default of
.BR \-\-home ;
without it
.I $XDG_DATA_HOME/zorkanca
or
.IR ~/.local/share/zorkanca .
.TP
.B ZORKANCA_LOCALE
Default of
.BR \-\-locale .
.TP
.B TMPDIR
Where intermediate files are written: there if nobody else may enter it, else in a private folder in it.
.TP
.B NO_COLOR
Takes the colour out of the progress bar.
.TP
.BR DISPLAY ", " WAYLAND_DISPLAY
The screen for dialogs, and for results that are opened.
.SH FILES
.TP
.I $XDG_CONFIG_HOME/zorkanca/config.toml
Options that hold without being given: a line
.I long\-name = value
for each, under
.I [command]
for one command.
A text stands in quotes, a flag is true or false.
An option on the line comes before the environment, and that before the file.
.TP
.IR HKCU.reg ", " HKLM.reg ", " HKCR.reg
In the home folder: settings and lists of templates.
.SH SEE ALSO
The manual in
.IR /usr/share/doc/zorkanca/docs ,
first of all
.IR command_line.md .
)";

}  // namespace

std::string ManPageOf(const CommandPage& program) {
  return kStart + (".SH EXAMPLES\n" + Examples(program)) + ".SH GLOBAL OPTIONS\n" + Options(program.options) +
         ".SH COMMANDS\n" + Commands(program) + kEnd;
}

}  // namespace zorkanca::cli
