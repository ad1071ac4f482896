#include "win32/automation/dispatch_error.h"

#include "win32/system_message.h"
#include "win32/wide_text.h"

namespace zorkanca::win32 {

namespace {

// Numbers that the logic itself has no use for.
constexpr std::int32_t kObjectRequired = 424;
constexpr std::int32_t kFileOrClassNotFound = 432;
constexpr std::int32_t kNoNamedArguments = 446;
constexpr std::int32_t kNamedArgumentNotFound = 448;
constexpr std::int32_t kArgumentNotOptional = 449;
constexpr std::int32_t kWrongNumberOfArguments = 450;
constexpr std::int32_t kServerGone = 462;

constexpr std::uint32_t kControlFacility = 0x800A0000;
constexpr std::uint32_t kFacilityMask = 0xFFFF0000;

// Results of Windows that stand for errors of remote calls.
constexpr HRESULT kRpcServerUnavailable = static_cast<HRESULT>(0x800706BA);
constexpr HRESULT kRpcCallFailed = static_cast<HRESULT>(0x800706BE);
constexpr HRESULT kRpcCallFailedUndone = static_cast<HRESULT>(0x800706BF);

constexpr std::int32_t Number(RuntimeError error) {
  return static_cast<std::int32_t>(error);
}

// The runtime's English words for the numbers; empty for others.
TextView WordsOf(std::int32_t number) {
  switch (number) {
    case kObjectRequired:
      return u"Object required";
    case kFileOrClassNotFound:
      return u"File name or class name not found during Automation operation";
    case kNoNamedArguments:
      return u"Object doesn't support named arguments";
    case kNamedArgumentNotFound:
      return u"Named argument not found";
    case kArgumentNotOptional:
      return u"Argument not optional";
    case kWrongNumberOfArguments:
      return u"Wrong number of arguments or invalid property assignment";
    case kServerGone:
      return u"The remote server machine does not exist or is unavailable";
    default:
      break;
  }
  const TextView words = DescriptionOf(static_cast<RuntimeError>(number));
  return words == DescriptionOf(RuntimeError{}) ? TextView() : words;
}

}  // namespace

std::int32_t ErrorNumberOf(HRESULT result) {
  switch (result) {
    case DISP_E_UNKNOWNNAME:
    case DISP_E_MEMBERNOTFOUND:
    case E_NOINTERFACE:
      return Number(RuntimeError::kNotSupported);
    case DISP_E_TYPEMISMATCH:
      return Number(RuntimeError::kTypeMismatch);
    case DISP_E_OVERFLOW:
      return Number(RuntimeError::kOverflow);
    case DISP_E_BADINDEX:
      return Number(RuntimeError::kSubscriptOutOfRange);
    case DISP_E_BADPARAMCOUNT:
      return kWrongNumberOfArguments;
    case DISP_E_PARAMNOTOPTIONAL:
      return kArgumentNotOptional;
    case DISP_E_PARAMNOTFOUND:
      return kNamedArgumentNotFound;
    case DISP_E_NONAMEDARGS:
      return kNoNamedArguments;
    case E_INVALIDARG:
      return Number(RuntimeError::kInvalidCall);
    case E_OUTOFMEMORY:
      return Number(RuntimeError::kOutOfMemory);
    case E_ACCESSDENIED:
      return Number(RuntimeError::kPermissionDenied);
    case kRpcServerUnavailable:
    case kRpcCallFailed:
    case kRpcCallFailedUndone:
    case RPC_E_DISCONNECTED:
    case RPC_E_SERVER_DIED:
    case RPC_E_SERVER_DIED_DNE:
    case CO_E_OBJNOTCONNECTED:
      return kServerGone;
    case REGDB_E_CLASSNOTREG:
    case CO_E_CLASSSTRING:
    case CO_E_APPNOTFOUND:
    case CO_E_SERVER_EXEC_FAILURE:
    case MK_E_UNAVAILABLE:
      return Number(RuntimeError::kCannotCreateObject);
    default:
      break;
  }
  const auto bits = static_cast<std::uint32_t>(result);
  if (bits >= MK_E_FIRST && bits <= MK_E_LAST) return kFileOrClassNotFound;
  if ((bits & kFacilityMask) == kControlFacility) return static_cast<std::int32_t>(bits & ~kFacilityMask);
  return result;
}

HRESULT ResultOf(std::int32_t number) {
  if (number <= 0 || number > 0xFFFF) return number;
  return static_cast<HRESULT>(kControlFacility | static_cast<std::uint32_t>(number));
}

Text DescriptionOfResult(HRESULT result) {
  const std::int32_t number = ErrorNumberOf(result);
  if (const TextView words = WordsOf(number); !words.empty()) return Text(words);
  Text message = SystemMessage(static_cast<DWORD>(result));
  return message.empty() ? Text(DescriptionOf(RuntimeError{})) : message;
}

void RaiseResult(HRESULT result, TextView member) {
  Text description = DescriptionOfResult(result);
  if (!member.empty()) description.append(u": ").append(member);
  throw Error(ErrorNumberOf(result), Text(), std::move(description));
}

void RaiseNumber(std::int32_t number) {
  RaiseResult(ResultOf(number));
}

void RaiseReported(EXCEPINFO& report) {
  if (report.pfnDeferredFillIn) report.pfnDeferredFillIn(&report);
  const HRESULT result = report.wCode != 0 ? ResultOf(report.wCode) : report.scode;
  Text source(FromWide(report.bstrSource));
  Text description(FromWide(report.bstrDescription));
  SysFreeString(report.bstrSource);
  SysFreeString(report.bstrDescription);
  SysFreeString(report.bstrHelpFile);
  report = {};
  if (description.empty()) description = DescriptionOfResult(result);
  throw Error(ErrorNumberOf(result), std::move(source), std::move(description));
}

}  // namespace zorkanca::win32
