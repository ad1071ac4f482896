// cAlternativeOfficeManager for clients.
#include "com/arguments.h"
#include "com/object.h"
#include "com/public_classes.h"
#include "office/alternative_office_manager.h"
#include "win32/automation/late_object.h"
#include "win32/computer/win32_platform.h"
#include "win32/desktop/win32_user_interface.h"

namespace zorkanca::com {

namespace {

// The window of a form of the client, which tells it as `hWnd`; null when there is no form, or it has no window.
HWND WindowOf(const VARIANT* ownerForm) {
  if (!ownerForm) return nullptr;
  try {
    win32::Variant form;
    if (FAILED(VariantCopyInd(form.Receive(), const_cast<VARIANT*>(ownerForm)))) return nullptr;
    const win32::Variant window = win32::LateObject::ObjectIn(form).Get(u"hWnd");
    return reinterpret_cast<HWND>(static_cast<std::intptr_t>(win32::AsLong(window)));
  } catch (...) {
    return nullptr;
  }
}

class AlternativeOfficeObject final
    : public AutomationObject<::_cAlternativeOfficeManager, ::cAlternativeOfficeManager> {
 public:
  AlternativeOfficeObject() : AutomationObject(u"cAlternativeOfficeManager"), manager_(computer_.platform()) {}

  HRESULT STDMETHODCALLTYPE GetUseAlternativeTableEditor(VARIANT_BOOL* result) override {
    return Guard([&] { BooleanResult(result, manager_.GetUseAlternativeTableEditor()); });
  }
  HRESULT STDMETHODCALLTYPE SaveUseAlternativeTableEditor(VARIANT_BOOL* setting) override {
    return Guard([&] { manager_.SaveUseAlternativeTableEditor(BooleanIn(setting)); });
  }
  HRESULT STDMETHODCALLTYPE GetUseAlternativeDocumentEditor(VARIANT_BOOL* result) override {
    return Guard([&] { BooleanResult(result, manager_.GetUseAlternativeDocumentEditor()); });
  }
  HRESULT STDMETHODCALLTYPE SaveUseAlternativeDocumentEditor(VARIANT_BOOL* setting) override {
    return Guard([&] { manager_.SaveUseAlternativeDocumentEditor(BooleanIn(setting)); });
  }
  HRESULT STDMETHODCALLTYPE GetTableEditorAppPath(BSTR* result) override {
    return Guard([&] { TextResult(result, manager_.GetTableEditorAppPath()); });
  }
  HRESULT STDMETHODCALLTYPE GetDocumentEditorAppPath(BSTR* result) override {
    return Guard([&] { TextResult(result, manager_.GetDocumentEditorAppPath()); });
  }
  HRESULT STDMETHODCALLTYPE SaveTableEditorAppPath(BSTR* AppPath) override {
    return Guard([&] { manager_.SaveTableEditorAppPath(TextIn(AppPath)); });
  }
  HRESULT STDMETHODCALLTYPE SaveDocumentEditorAppPath(BSTR* AppPath) override {
    return Guard([&] { manager_.SaveDocumentEditorAppPath(TextIn(AppPath)); });
  }
  HRESULT STDMETHODCALLTYPE GetTableEditorStoreFolder(BSTR PrefixAppZorix, BSTR* result) override {
    return Guard([&] { TextResult(result, manager_.GetTableEditorStoreFolder(TextOf(PrefixAppZorix))); });
  }
  HRESULT STDMETHODCALLTYPE GetDocumentEditorStoreFolder(BSTR PrefixAppZorix, BSTR* result) override {
    return Guard([&] { TextResult(result, manager_.GetDocumentEditorStoreFolder(TextOf(PrefixAppZorix))); });
  }
  HRESULT STDMETHODCALLTYPE SaveTableEditorStoreFolder(BSTR* StoreFolder, BSTR PrefixAppZorix) override {
    return Guard([&] { manager_.SaveTableEditorStoreFolder(TextIn(StoreFolder), TextOf(PrefixAppZorix)); });
  }
  HRESULT STDMETHODCALLTYPE SaveDocumentEditorStoreFolder(BSTR* StoreFolder, BSTR PrefixAppZorix) override {
    return Guard([&] { manager_.SaveDocumentEditorStoreFolder(TextIn(StoreFolder), TextOf(PrefixAppZorix)); });
  }
  HRESULT STDMETHODCALLTYPE ShowPresetForm(::eTypeOfEditor* TypeOfEditor, BSTR PrefixAppZorix,
                                           VARIANT* OwnerForm) override {
    return Guard([&] {
      win32::Win32UserInterface overOwner(WindowOf(OwnerForm));
      const zorkanca::cAlternativeOfficeManager manager(computer_.platform().With(overOwner));
      manager.ShowPresetForm(Editor(TypeOfEditor), TextOf(PrefixAppZorix));
    });
  }
  HRESULT STDMETHODCALLTYPE OpenFileInTableEditor(BSTR* fileName) override {
    return Guard([&] { manager_.OpenFileInTableEditor(TextIn(fileName)); });
  }
  HRESULT STDMETHODCALLTYPE OpenFileInDocumentEditor(BSTR* fileName) override {
    return Guard([&] { manager_.OpenFileInDocumentEditor(TextIn(fileName)); });
  }
  HRESULT STDMETHODCALLTYPE GetDefaultEditorAppPath(::eTypeOfEditor* TypeOfEditor, BSTR* result) override {
    return Guard([&] { TextResult(result, manager_.GetDefaultEditorAppPath(Editor(TypeOfEditor))); });
  }
  HRESULT STDMETHODCALLTYPE GetDefaultEditorStoreFolder(::eTypeOfEditor* TypeOfEditor, BSTR PrefixAppZorix,
                                                        BSTR* result) override {
    return Guard([&] {
      TextResult(result, manager_.GetDefaultEditorStoreFolder(Editor(TypeOfEditor), TextOf(PrefixAppZorix)));
    });
  }
  HRESULT STDMETHODCALLTYPE OpenEditorStoreFolder(::eTypeOfEditor* TypeOfEditor, BSTR PrefixAppZorix) override {
    return Guard([&] { manager_.OpenEditorStoreFolder(Editor(TypeOfEditor), TextOf(PrefixAppZorix)); });
  }

 private:
  ~AlternativeOfficeObject() override = default;

  static zorkanca::eTypeOfEditor Editor(const ::eTypeOfEditor* type) {
    return EnumerationIn<zorkanca::eTypeOfEditor>(type);
  }

  win32::Win32Platform computer_;
  zorkanca::cAlternativeOfficeManager manager_;
};

}  // namespace

IDispatch* NewAlternativeOfficeManager() {
  return new AlternativeOfficeObject;
}

}  // namespace zorkanca::com
