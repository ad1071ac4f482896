// What opening a document in Word and a workbook in Excel have in common: the application is the running one or is
// started, stays unseen as long as it is worked on, and the client is told.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <utility>

#include "export/export_context.h"
#include "export/export_types.h"
#include "export/suspended_screen.h"
#include "runtime/error.h"

namespace zorkanca {

template <typename Application>
struct AttachedApplication {
  std::shared_ptr<Application> application{};
  bool startedHere = false;
};

/// Attaches to the running application; only when none runs it is started. One that is not to be found as running after
/// that is used as it was started.
template <typename Application>
AttachedApplication<Application> AttachOrStart(OfficeApplications& office,
                                               std::shared_ptr<Application> (OfficeApplications::*attach)(),
                                               std::shared_ptr<Application> (OfficeApplications::*start)()) {
  const auto running = [&]() -> std::shared_ptr<Application> {
    try {
      return (office.*attach)();
    } catch (const Error& error) {
      if (error.number() != static_cast<std::int32_t>(RuntimeError::kCannotCreateObject)) throw;
      return nullptr;
    }
  };
  if (auto application = running()) return {.application = std::move(application)};
  auto started = (office.*start)();  // held: an unseen one without references would end
  auto found = running();
  return {.application = found ? std::move(found) : std::move(started), .startedHere = true};
}

/// How the application is seen while and after something is opened in it.
struct OpeningView {
  AppVisible visible = AppVisible::avTrue;
  bool visibleWithinDataProcess = false;  ///< what `avFalse` means in this installation
  bool screenUpdating = true;
};

/// Opens something in the application. A running one that the user sees draws nothing meanwhile.
template <typename Application, typename Open>
void OpenUnseen(const AttachedApplication<Application>& attached, const OpeningView& view, Open open) {
  Application& application = *attached.application;
  if (view.visible == AppVisible::avFalse) application.Visible(view.visibleWithinDataProcess);
  std::optional<SuspendedScreen<Application>> suspended;
  if (!attached.startedHere && view.screenUpdating && application.Visible()) {
    suspended.emplace(application, /*afterwards=*/true);
  } else {
    application.ScreenUpdating(view.screenUpdating);
  }
  open(application);
  suspended.reset();
  if (view.visible == AppVisible::avTrue) application.Visible(true);
}

/// Texts of the states round an opening.
struct OpeningTexts {
  TextView opening;
  TextView opened;
  TextView failed;  ///< the error's description follows
};

/// Tells the client of an opening before and after it; a failure is told, not raised, that of the client's handler too.
/// @param showsHourglass  while it lasts; the default pointer is shown after it in any case
/// @return                true when nothing failed
bool TellOfOpening(const ExportContext& context, const OpeningTexts& texts, bool showsHourglass,
                   const std::function<void()>& open);

}  // namespace zorkanca
