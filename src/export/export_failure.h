// How an export ends when it cannot go on: the messages that all exports share, and the edge where a failure becomes a
// message box and False.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "export/export_context.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace zorkanca {

class ExportSession;

/// No column name could be derived from the SELECT.
inline constexpr TextView kNoColumnNames = u"Chyba při sestavování hlavičky souboru !";
/// The query could not be run or positioned.
inline constexpr TextView kDataAccessFailed = u"Chyba při přístupu k datům !";
/// The query gave no rows.
inline constexpr TextView kNoRecords = u"Nebyly nalezeny žádné záznamy !";
/// The PercentDone handler cancelled, or the user interrupted a running query.
inline constexpr TextView kCancelledByUser = u"Výstup byl přerušen uživatelem !";

/// Stops the export with a message for the user.
[[noreturn]] void StopExport(TextView message);
/// The same; the message box does not say why, the report of the operation does.
[[noreturn]] void StopExport(TextView message, const Error& cause);

/// The whole message of an error that ends an export as foreseen: that of `StopExport`, or the user's interruption.
/// @return nothing for any other error
std::optional<Text> StopMessage(const Error& error);

/// Runs a step whose every failure, whatever a client's database throws, means the same to the user: the data cannot be
/// had. What stops the export as foreseen stays what it is.
template <typename Body>
auto AccessingData(Body body) {
  try {
    return body();
  } catch (...) {
    const Error error = *ErrorBeingHandled();
    if (StopMessage(error)) throw;
    StopExport(kDataAccessFailed, error);
  }
}

/// Inside a catch block: what the message of the error being handled hides; nothing for most errors.
std::optional<Error> HiddenCause();

/// What an export adds to a failure that none of its messages foresees; each may be empty.
struct UnforeseenFailure {
  std::function<Text(const Error&)> details{};  ///< what follows the error in the message
  std::function<void()> afterwards{};           ///< called once the message was shown
};

/// Runs the body of an export. A failure is shown to the user under the title, the export's output file is deleted.
/// @param session  the export's session; its ending follows when the caller lets go of it
/// @param body     its answer is the export's result: false when the user chose to do nothing
/// @return         the body's answer; false after a failure
bool RunToEdge(ExportSession& session, TextView title, const std::function<bool()>& body,
               const UnforeseenFailure& unforeseen = {});

}  // namespace zorkanca
