#include "foundation/form_layout_memento.h"

#include <gtest/gtest.h>

#include "foundation/base_services.h"
#include "foundation/error_codes.h"
#include "foundation/focus_move.h"
#include "foundation/registry_memento_persistor.h"
#include "support/memory_platform.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

constexpr TextView kLayoutKey = u"Software\\VB and VBA Program Settings\\zorKancA\\Layout";

/// The sizes of all forms here, in twips; the screen is 28800 by 15600.
class PlainForm final : public Form {
 public:
  explicit PlainForm(BorderStyle style = BorderStyle::kSizable) : Form(style, 6000, 3000) {}
};

class FormLayoutMementoTest : public ::testing::Test {
 protected:
  /// Watches a form, which finds the text in the registry unless it is empty.
  std::unique_ptr<FormLayoutMemento> Watch(Form& form, TextView stored = {}) {
    if (!stored.empty()) computer.registry.Write(RegistryHive::kCurrentUser, kLayoutKey, u"okno", Text(stored));
    auto memento = std::make_unique<FormLayoutMemento>(computer.userInterface);
    memento->InitNewInstance(&form, u"okno", std::make_shared<RegistryMementoPersistor>(computer.registry));
    return memento;
  }
  std::string Stored() { return computer.registry.Listing(RegistryHive::kCurrentUser, kLayoutKey); }

  MemoryPlatform computer;
};

TEST_F(FormLayoutMementoTest, KeepsTheLastNormalBoundsAndTheState) {
  PlainForm form;
  {
    const auto memento = Watch(form);
    memento->Restore();
    EXPECT_FALSE(form.placed()) << "nothing is kept yet";
    memento->Save();
    EXPECT_EQ(Stored(), "") << "no screen has shown the form yet";
    form.PersonResized({1500, 750.5F, 7000, 4000}, WindowState::kNormal, 6900, 3800);
    form.PersonResized({0, 0, 28800, 15600}, WindowState::kMaximized, 28700, 15400);
    EXPECT_EQ(memento->CurrentLayout().Location, Point(1500, 750.5F));
    memento->Save();
  }
  EXPECT_EQ(Stored(), "okno = &2|!1500|!750.5|!7000|!4000\n");
  form.SetBounds({1, 2, 3, 4});  // nobody watches any more

  PlainForm again;
  const auto memento = Watch(again);
  memento->Restore();
  EXPECT_EQ(again.windowState(), WindowState::kMaximized);
  EXPECT_EQ(again.bounds(), (Bounds{1500, 750.5F, 7000, 4000}));
  again.PersonResized({-32000, -32000, 0, 0}, WindowState::kMinimized, 0, 0);
  memento->Save();
  EXPECT_EQ(Stored(), "okno = &1|!1500|!750.5|!7000|!4000\n");

  PlainForm third;
  Watch(third)->Restore();
  EXPECT_EQ(third.windowState(), WindowState::kNormal);
  EXPECT_EQ(third.bounds(), (Bounds{1500, 750.5F, 7000, 4000}));
}

TEST_F(FormLayoutMementoTest, BringsFormsIntoTheScreenOfToday) {
  computer.userInterface.workingArea = {.left = 100, .top = 20, .width = 800, .height = 600};
  const struct {
    BorderStyle style;
    TextView stored;
    Bounds expected;
  } kCases[] = {
      {BorderStyle::kSizable, u"&0|!2000|!1000|!5000|!4000", {2000, 1000, 5000, 4000}},
      {BorderStyle::kSizable, u"&0|!20000|!9000|!5000|!4000", {8500, 5300, 5000, 4000}},
      {BorderStyle::kSizable, u"&0|!-20|!-20|!5000|!4000", {1500, 300, 5000, 4000}},
      {BorderStyle::kSizableToolWindow, u"&0|!9000|!9000|!50000|!40000", {1500, 300, 12000, 9000}},
      {BorderStyle::kFixedDialog, u"&0|!20000|!9000|!500|!400", {7500, 6300, 6000, 3000}},
      {BorderStyle::kFixedSingle, u"&0|&1600|%400|!500|!400", {1600, 400, 6000, 3000}},
  };
  for (const auto& [style, stored, expected] : kCases) {
    PlainForm form(style);
    Watch(form, stored)->Restore();
    EXPECT_EQ(form.bounds(), expected) << Shown(stored);
    EXPECT_TRUE(form.placed());
  }
  EXPECT_EQ(UsableScreenArea(computer.userInterface).ToString(computer.locale), u"1500, 300, 12000, 9000");
}

TEST_F(FormLayoutMementoTest, LeavesTheFormAloneWhenTheTextIsDamaged) {
  for (const TextView stored : {u"x", u"&0|!1|!2|!3", u"&3|!1|!2|!3|!4", u"!.5|!1|!2|!3|!4", u"&0|!1|!2|!-3|!4",
                                u"&0|!1|!2|!3|$4", u"&0;!1;!2;!3;!4", u"!1E30|!1|!2|!3|!4"}) {
    PlainForm form;
    EXPECT_EQ(ErrorOf([&] { Watch(form, stored)->Restore(); }).number(), UnexpectedErrorCode) << Shown(stored);
    EXPECT_FALSE(form.placed());
  }
  PlainForm form;
  FormLayoutMemento memento(computer.userInterface);
  EXPECT_EQ(ErrorOf([&] { memento.Save(); }).number(), UnexpectedErrorCode);
  const auto persistor = std::make_shared<RegistryMementoPersistor>(computer.registry);
  EXPECT_EQ(ErrorOf([&] { memento.InitNewInstance(nullptr, u"okno", persistor); }).number(), ArgumentErrorCode);
  EXPECT_EQ(ErrorOf([&] { memento.InitNewInstance(&form, u" ", persistor); }).number(), ArgumentErrorCode);
  const Error error = ErrorOf([&] { memento.InitNewInstance(&form, u"okno", nullptr); });
  EXPECT_EQ(error.number(), ArgumentErrorCode);
  EXPECT_EQ(error.source(), u"FormLayoutMemento.InitNewInstance");
}

class ScreenlessUserInterface final : public UserInterface {
 public:
  MessageAnswer Show(const Message&) override { return MessageAnswer::kOk; }
  void SetMousePointer(MousePointer) override {}
  void Beep() override {}
  void ProcessPendingEvents() override {}
  Text ChooseFile(const FileDialog&) override { return {}; }
  Text ChooseFolder(TextView, TextView) override { return {}; }
  WorkingArea GetWorkingArea() override { throw Error(1461, {}, u"no monitor"); }
  void ShowModal(Form&, Form*) override {}
};

TEST(UsableScreenArea, TellsThatThereIsNoScreen) {
  ScreenlessUserInterface userInterface;
  const Error error = ErrorOf([&] { const UsableScreenArea area(userInterface); });
  EXPECT_EQ(error.number(), InvalidOperationErrorCode);
  EXPECT_EQ(error.description(), u"Chyba při volání API GetMonitorInfo. (LastDLLError = 1461)");
  EXPECT_EQ(error.source(), u"[zorKancA].WindowsLayoutAPI.getMonitorInfoStruc");
}

TEST(Pair, ShowsNumbersAndRefusesNegativeSizes) {
  const Locale& locale = *FindLocale(u"cs-CZ");
  EXPECT_EQ(Point(-15.4F, 120000).ToString(locale), u"-15, 120000");
  EXPECT_EQ(Size(0, 2.6F).ToString(locale), u"0, 3");
  for (const auto& [width, height] : {std::pair(-1.0F, 0.0F), std::pair(0.0F, -.5F)}) {
    const Error error = ErrorOf([w = width, h = height] { const Size size(w, h); });
    EXPECT_EQ(error.number(), ArgumentErrorCode);
    EXPECT_NE(error.description().find(u"Nezáporné číslo"), Text::npos);
  }
}

TEST(FocusMove, GoesRoundTheTabStops) {
  class Buttons final : public Form {
   public:
    Buttons() : Form(BorderStyle::kFixedDialog, 100, 100) {
      third.SetTabIndex(7);
      first.SetTabIndex(2);
      second.SetTabIndex(5);
    }
    Button third{*this, u"third"};
    Button first{*this, u"first"};
    Button second{*this, u"second"};
    Button outside{*this, u"outside"};
  } form;
  EXPECT_EQ(ErrorOf([] { sf_NextCtr(nullptr); }).number(), ArgumentErrorCode);
  EXPECT_FALSE(sf_NextCtr(&form)) << "nothing is active";
  form.first.SetFocus();
  std::string path;
  for (int step = 0; step < 4; ++step) {
    if (step == 2) form.second.SetTabStop(false);
    EXPECT_TRUE(sf_NextCtr(&form));
    path += ToUtf8(form.activeControl()->name()) + " ";
  }
  EXPECT_EQ(path, "second third first third ");
  for (Control* control : form.controls()) control->SetTabStop(false);
  EXPECT_FALSE(sf_NextCtr(&form));
}

TEST(BaseServices, ReadTheLibrarysSettingsUntilTheirEnd) {
  MemoryPlatform computer;
  std::unique_ptr<BaseServices> services;
  ASSERT_TRUE(sf_ZakladStart(computer.platform, services));
  services->registryAccess().SaveSetting(u"Layout", u"a", u"b");
  EXPECT_EQ(computer.registry.Listing(RegistryHive::kCurrentUser, kLayoutKey), "a = b\n");
  EXPECT_EQ(&services->files(), &computer.files);
  sf_ZakladKonec(services);
  EXPECT_EQ(services, nullptr);
}

}  // namespace
}  // namespace zorkanca::testing
