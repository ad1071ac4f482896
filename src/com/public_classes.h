// Makes the objects that clients can create. Each holds the computer that it works with, so that nothing is shared and
// locale and settings are as fresh as the object.
#pragma once

#include "win32/system.h"

namespace zorkanca::com {

/// A new object with one reference. Errors: those of the logic's class.
IDispatch* NewZorOffice();
IDispatch* NewKancelApl();
IDispatch* NewFormat();
IDispatch* NewAlternativeOfficeManager();
IDispatch* NewOfficePdfConvert();
IDispatch* NewXmlTemplateFactory();

}  // namespace zorkanca::com
