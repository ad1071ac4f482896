// Everything that the product's logic knows of the computer, as one bundle of references handed to constructors.
#pragma once

#include "platform/clock.h"
#include "platform/database.h"
#include "platform/event_log.h"
#include "platform/file_system.h"
#include "platform/office_applications.h"
#include "platform/registry.h"
#include "platform/shell.h"
#include "platform/suite_environment.h"
#include "platform/user_interface.h"
#include "runtime/locale.h"

namespace zorkanca {

/// The parts outlive every object that was given the bundle.
struct Platform {
  FileSystem& files;
  Registry& registry;
  UserInterface& userInterface;
  Shell& shell;
  Clock& clock;
  const Locale& locale;
  EventLog& eventLog;
  SuiteEnvironment& environment;
  OfficeApplications& office;

  /// The same computer with another desktop.
  Platform With(Shell& otherShell) const {
    return {files, registry, userInterface, otherShell, clock, locale, eventLog, environment, office};
  }
  /// The same computer before another user.
  Platform With(UserInterface& otherUser) const {
    return {files, registry, otherUser, shell, clock, locale, eventLog, environment, office};
  }
};

}  // namespace zorkanca
