#include "com/script_host.h"

#include <cstring>
#include <memory>
#include <sstream>

#include "com/named_object.h"
#include "com/served_program.h"
#include "com/server_under_test.h"
#include "runtime/code_page.h"
#include "runtime/utf8.h"
#include "support/file_text.h"
#include "win32/wide_text.h"

#include <activscp.h>

namespace zorkanca::testing {

namespace {

constexpr CLSID kVBScript = {0xb54f3741, 0x5b07, 0x11cf, {0xa4, 0xb0, 0x00, 0xaa, 0x00, 0x4a, 0x55, 0xe8}};

std::string TextOf(const VARIANT& value) {
  Variant text;
  if (FAILED(VariantChangeTypeEx(text.Receive(), const_cast<VARIANT*>(&value), win32::kAutomationLanguage,
                                 VARIANT_ALPHABOOL, VT_BSTR))) {
    return "no text, type " + std::to_string(value.vt);
  }
  return ToUtf8(FromWide(text.get().bstrVal, SysStringLen(text.get().bstrVal)));
}

std::wstring WideOf(const VARIANT& value) {
  return Wide(TextOf(value));
}

HRESULT Give(VARIANT& result, const std::string& utf8) {
  result = win32::TextToVariant(FromUtf8(utf8)).Detach();
  return S_OK;
}

// Hands the events to the object of a script, whose procedures bear their names.
class ScriptSink final : public NamedObject {
 public:
  explicit ScriptSink(IDispatch* handler) : NamedObject({}), handler_(handler) { AnswerTo(__uuidof(::__cZorOffice)); }

 private:
  HRESULT Call(DISPID event, DISPPARAMS& parameters, VARIANT& result, EXCEPINFO* failure) override {
    const auto extended = handler_.As<IDispatchEx>();
    if (!extended) return E_NOINTERFACE;
    const BSTR name = SysAllocString(event == 1 ? L"ExportState" : L"PercentDone");
    DISPID id = DISPID_UNKNOWN;
    const HRESULT known = extended->GetDispID(name, fdexNameCaseInsensitive, &id);
    SysFreeString(name);
    if (FAILED(known)) return known;
    // The engine here writes into Variants by reference alone.
    VARIANT variables[2] = {};
    VARIANTARG arguments[2] = {};
    for (UINT index = 0; index < 2; ++index) {
      VariantCopyInd(&variables[index], &parameters.rgvarg[index]);
      arguments[index].vt = VT_BYREF | VT_VARIANT;
      arguments[index].pvarVal = &variables[index];
    }
    DISPPARAMS passed{arguments, nullptr, 2, 0};
    const HRESULT told = handler_->Invoke(id, IID_NULL, 0, DISPATCH_METHOD, &passed, &result, failure, nullptr);
    if (event == 2) *parameters.rgvarg[0].pboolVal = variables[0].boolVal;
    for (VARIANT& variable : variables) VariantClear(&variable);
    return told;
  }

  ComPointer<IDispatch> handler_;
};

class TestObject final : public NamedObject {
 public:
  explicit TestObject(std::vector<std::string>& failures)
      : NamedObject({L"Create", L"Check", L"Same", L"Folder", L"Read", L"Write", L"Messages", L"Opened", L"Answer",
                     L"Serve", L"Stop", L"Hold", L"Fail", L"Journal", L"Events", L"Allow", L"Expect"}),
        failures_(failures) {}

  void StopServing() {
    if (program_) program_->Stop();
    program_ = nullptr;
  }
  const std::string& allowed() const { return allowed_; }

 private:
  HRESULT Call(DISPID member, DISPPARAMS& parameters, VARIANT& result, EXCEPINFO*) override {
    std::vector<VARIANT> arguments;
    for (UINT position = 0; position < parameters.cArgs; ++position) {
      VARIANT plain{};
      VariantCopyInd(&plain, const_cast<VARIANT*>(&Argument(parameters, position)));
      arguments.push_back(plain);
    }
    const HRESULT answer = Do(member, arguments, result);
    for (VARIANT& argument : arguments) VariantClear(&argument);
    return answer;
  }

  HRESULT Do(DISPID member, const std::vector<VARIANT>& arguments, VARIANT& result) {
    constexpr std::size_t kCounts[] = {0, 1, 2, 2, 0, 1, 2, 0, 0, 1, 1, 0, 2, 2, 0, 2, 1, 2};
    if (arguments.size() != kCounts[member]) return DISP_E_BADPARAMCOUNT;
    switch (member) {
      case 1: {
        const LateObject made = CreateByName(WideOf(arguments[0]));
        result.vt = VT_DISPATCH;
        result.pdispVal = ComPointer<IDispatch>(made.dispatch()).Detach();
        return S_OK;
      }
      case 2:
        if (arguments[0].vt != VT_BOOL || !arguments[0].boolVal)
          failures_.push_back("not true: " + TextOf(arguments[1]));
        return S_OK;
      case 3:
        if (TextOf(arguments[0]) != TextOf(arguments[1])) {
          failures_.push_back("found    " + TextOf(arguments[0]) + "\nexpected " + TextOf(arguments[1]));
        }
        return S_OK;
      case 4:
        return testing::Give(result, Utf8(folder_.path().c_str()));
      case 5:
        return Read(WideOf(arguments[0]), result);
      case 6: {
        std::string bytes;
        CodePage::Get(1250).AppendEncoded(bytes, FromUtf8(TextOf(arguments[1])));
        WriteBytes(WideOf(arguments[0]), bytes);
        return S_OK;
      }
      case 7:
        return testing::Give(result, TheDesktop().Messages());
      case 8:
        return testing::Give(result, TheDesktop().Opened());
      case 9:
        TheDesktop().answer = std::stoi(TextOf(arguments[0]));
        return S_OK;
      case 10:
        StopServing();
        programs_.push_back(std::make_unique<ServedProgram>(WideOf(arguments[0])));
        program_ = programs_.back().get();
        return S_OK;
      case 11:
        StopServing();
        return S_OK;
      case 16:
        allowed_ = TextOf(arguments[0]);
        return S_OK;
      case 17:
        return Expect(TextOf(arguments[0]), TextOf(arguments[1]));
      default:
        return WithProgram(member, arguments, result);
    }
  }

  HRESULT Expect(const std::string& journal, const std::string& name) {
    std::istringstream lines(ProjectFileText("tests/com/scripts/" + name + ".txt"));
    std::string expected;
    for (std::string line; std::getline(lines, line);) expected.append(expected.empty() ? "" : " | ").append(line);
    if (journal != expected) failures_.push_back(name + ": found    " + journal + "\nexpected " + expected);
    return S_OK;
  }

  static HRESULT Read(const std::wstring& file, VARIANT& result) {
    Text text;
    const std::string bytes = BytesOf(file);
    if (bytes.starts_with("\xFF\xFE")) {
      text.resize(bytes.size() / sizeof(char16_t) - 1);
      std::memcpy(text.data(), bytes.data() + sizeof(char16_t), text.size() * sizeof(char16_t));
      return testing::Give(result, ToUtf8(text));
    }
    CodePage::Get(1250).AppendDecoded(text, bytes);
    return testing::Give(result, ToUtf8(text));
  }

  HRESULT WithProgram(DISPID member, const std::vector<VARIANT>& arguments, VARIANT& result) {
    if (member == 15) return Listen(arguments[0], arguments[1]);
    if (!program_) return E_UNEXPECTED;
    if (member == 12) {
      VARIANT held{};
      VariantCopy(&held, const_cast<VARIANT*>(&arguments[1]));
      program_->world.values[TextOf(arguments[0])] = Variant::Owning(held);
    } else if (member == 13) {
      const int number = std::stoi(TextOf(arguments[1]));
      program_->world.failures[TextOf(arguments[0])] =
          static_cast<HRESULT>(0x800A0000U + static_cast<unsigned>(number));
    } else {
      return testing::Give(result, program_->world.Lines());
    }
    return S_OK;
  }

  HRESULT Listen(const VARIANT& object, const VARIANT& handler) {
    ComPointer<IConnectionPointContainer> container =
        ComPointer<IUnknown>(object.punkVal).As<IConnectionPointContainer>();
    ComPointer<IConnectionPoint> point;
    if (!container || FAILED(container->FindConnectionPoint(__uuidof(::__cZorOffice), point.Receive()))) return E_FAIL;
    DWORD cookie = 0;
    const ComPointer<ScriptSink> sink(new ScriptSink(handler.pdispVal));
    return point->Advise(sink.get(), &cookie);
  }

  std::vector<std::string>& failures_;
  std::string allowed_;
  TestFolder folder_;
  std::vector<std::unique_ptr<ServedProgram>> programs_;  // which the script may hold objects of to its end
  ServedProgram* program_ = nullptr;
};

class Site final : public IActiveScriptSite {
 public:
  Site(TestObject* test, std::vector<std::string>& failures) : test_(test), failures_(failures) {}

  HRESULT __stdcall QueryInterface(REFIID id, void** object) override {
    *object = id == IID_IUnknown || id == __uuidof(IActiveScriptSite) ? this : nullptr;
    return *object ? S_OK : E_NOINTERFACE;
  }
  ULONG __stdcall AddRef() override { return 2; }  // it outlives the engine
  ULONG __stdcall Release() override { return 1; }
  HRESULT __stdcall GetLCID(LCID* language) override { return *language = GetUserDefaultLCID(), S_OK; }
  HRESULT __stdcall GetItemInfo(LPCOLESTR, DWORD mask, IUnknown** item, ITypeInfo** typeInfo) override {
    if (mask & SCRIPTINFO_ITYPEINFO) *typeInfo = nullptr;
    if (mask & SCRIPTINFO_IUNKNOWN) *item = ComPointer<IUnknown>(test_).Detach();
    return S_OK;
  }
  HRESULT __stdcall GetDocVersionString(BSTR*) override { return E_NOTIMPL; }
  HRESULT __stdcall OnScriptTerminate(const VARIANT*, const EXCEPINFO*) override { return S_OK; }
  HRESULT __stdcall OnStateChange(SCRIPTSTATE) override { return S_OK; }
  HRESULT __stdcall OnScriptError(IActiveScriptError* error) override {
    EXCEPINFO told{};
    DWORD context = 0;
    ULONG line = 0;
    LONG column = 0;
    error->GetExceptionInfo(&told);
    error->GetSourcePosition(&context, &line, &column);
    if (test_->allowed().empty() || Utf8(told.bstrDescription) != test_->allowed())
      failures_.push_back("line " + std::to_string(line + 1) + ": " + std::to_string(told.scode & 0xFFFF) + " " +
                          Utf8(told.bstrDescription) + " (" + Utf8(told.bstrSource) + ")");
    SysFreeString(told.bstrSource);
    SysFreeString(told.bstrDescription);
    return S_FALSE;
  }
  HRESULT __stdcall OnEnterScript() override { return S_OK; }
  HRESULT __stdcall OnLeaveScript() override { return S_OK; }

 private:
  TestObject* test_;
  std::vector<std::string>& failures_;
};

}  // namespace

std::vector<std::string> RunScript(const std::string& name) {
  std::vector<std::string> failures;
  for (const wchar_t* const left : {L"Word.Application", L"Excel.Application"}) RegDeleteTreeW(HKEY_CLASSES_ROOT, left);
  const ComPointer<TestObject> test(new TestObject(failures));
  Site site(test.get(), failures);
  ComPointer<IActiveScript> engine;
  if (FAILED(
          CoCreateInstance(kVBScript, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IActiveScript), engine.ReceiveAny()))) {
    return {"no script engine"};
  }
  const auto parse = engine.As<IActiveScriptParse>();
  const std::wstring database = Wide(ProjectFileText("tests/com/scripts/database.vbs"));
  const std::wstring source = Wide(ProjectFileText("tests/com/scripts/" + name + ".vbs"));
  const auto run = [&](const std::wstring& text) {
    return SUCCEEDED(parse->ParseScriptText(text.c_str(), nullptr, nullptr, nullptr, 0, 0, 0, nullptr, nullptr));
  };
  bool ran = parse && !source.empty() && SUCCEEDED(engine->SetScriptSite(&site)) && SUCCEEDED(parse->InitNew()) &&
             SUCCEEDED(engine->AddNamedItem(L"T", SCRIPTITEM_ISVISIBLE));
  ran = ran && SUCCEEDED(engine->SetScriptState(SCRIPTSTATE_CONNECTED));
  ran = ran && run(database) && run(source);
  if (!ran && failures.empty()) failures.push_back("the script did not run");
  test->StopServing();
  engine->Close();
  TheDesktop() = Desktop();
  return failures;
}

}  // namespace zorkanca::testing
