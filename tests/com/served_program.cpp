#include "com/served_program.h"

namespace zorkanca::testing {

namespace {

constexpr CLSID kStandIn = {0x3d1b6f02, 0x9a64, 0x4f0b, {0x8c, 0x5a, 0x71, 0x20, 0x6e, 0x0d, 0x4b, 0x95}};

class OneObjectFactory final : public IClassFactory {
 public:
  explicit OneObjectFactory(IDispatch* object) : object_(object) {}
  HRESULT __stdcall QueryInterface(REFIID id, void** object) override {
    *object = id == IID_IUnknown || id == IID_IClassFactory ? this : nullptr;
    if (!*object) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG __stdcall AddRef() override { return ++references_; }
  ULONG __stdcall Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }
  HRESULT __stdcall CreateInstance(IUnknown*, REFIID id, void** object) override {
    return object_->QueryInterface(id, object);
  }
  HRESULT __stdcall LockServer(BOOL) override { return S_OK; }

 private:
  ~OneObjectFactory() = default;
  ULONG references_ = 0;
  ComPointer<IDispatch> object_;
};

}  // namespace

ServedProgram::ServedProgram(const std::wstring& name) : name_(name), root_(world.Root()) {
  wchar_t id[39] = {};
  StringFromGUID2(kStandIn, id, 39);
  RegSetKeyValueW(HKEY_CLASSES_ROOT, (name_ + L"\\CLSID").c_str(), nullptr, REG_SZ, id, 39 * sizeof(wchar_t));
  const ComPointer<IClassFactory> factory(new OneObjectFactory(root_.dispatch()));
  CoRegisterClassObject(kStandIn, factory.get(), CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER, REGCLS_MULTIPLEUSE,
                        &started_);
  RegisterActiveObject(root_.dispatch(), kStandIn, ACTIVEOBJECT_STRONG, &running_);
}

void ServedProgram::Stop() {
  if (!root_) return;
  root_ = LateObject();
  RevokeActiveObject(running_, nullptr);
  CoRevokeClassObject(started_);
  RegDeleteTreeW(HKEY_CLASSES_ROOT, name_.c_str());
}

}  // namespace zorkanca::testing
