// Runs a script as a client: the system's script engine with one object more, T, through which the script creates
// objects of the library under test, stands in for other programs, and tells what it found.
#pragma once

#include <string>
#include <vector>

namespace zorkanca::testing {

/// The classes of database.vbs beside it are the script's, too. Members of T:
///   Create(class)            an object of the library, for example T.Create("cZorOffice")
///   Check(condition, what)   a failure when it is not True
///   Same(found, expected)    a failure when the texts of both differ
///   Folder                   a new folder, with "\" at its end
///   Read(file)               text of a file in code page 1250, or UTF-16 with a mark; "" when it is not there
///   Write(file, text)        the other way
///   Messages, Opened         message boxes ("title: text") and files handed to the shell since the last time
///   Answer(number)           how message boxes are answered from now on
///   Serve(program)           stands in for "Word.Application" or "Excel.Application" from now on: it is running, and
///   can
///                            be started; every name is a member of its objects
///   Stop                     ends that
///   Hold(member, value)      the members of that name hold the value, in all its objects
///   Fail(member, number)     calls of the members of that name end with the error
///   Journal                  what was done with its objects since the last time, joined by " | "
///   Allow(description)       errors of this description, raised in procedures that others call, are no failures
///   Expect(journal, name)    a failure when the journal is not what name.txt beside the script has, a line for each
///   call Events(object, handler)  calls ExportState and PercentDone of the handler
/// @param name  of a script in tests/com/scripts
/// @return      failures, each with its line where it is one of the script; empty when the script ran to its end
std::vector<std::string> RunScript(const std::string& name);

}  // namespace zorkanca::testing
