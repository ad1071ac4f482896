// The product's dialogs in real windows, driven as a clerk would: by keys and clicks alone, looking at what is to be
// seen.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "office/alternative_office_manager.h"
#include "support/template_lists.h"
#include "support/text_support.h"
#include "templates/template_lists.h"
#include "win32/computer/win32_platform.h"
#include "win32/window_person.h"

namespace zorkanca::win32 {
namespace {

using zorkanca::testing::Shown;
using zorkanca::testing::TemplatePlatform;

class Dialogs : public Windows {
 protected:
  // What the list on the screen shows, the selected row in brackets.
  std::string List() {
    return Seen([&] {
      HWND list = Part("ListBox");
      const auto ask = [list](UINT message, LRESULT row = 0, LPARAM text = 0) {
        return SendMessageW(list, message, static_cast<WPARAM>(row), text);
      };
      std::string rows;
      for (LRESULT row = 0; row < ask(LB_GETCOUNT); ++row) {
        wchar_t text[200];
        ask(LB_GETTEXT, row, reinterpret_cast<LPARAM>(text));
        const std::string shown = ToUtf8(FromWide(text));
        rows.append(rows.empty() ? "" : ", ").append(row == ask(LB_GETCURSEL) ? "[" + shown + "]" : shown);
      }
      return rows;
    });
  }
  // The captions of the buttons that can be pressed.
  std::string Buttons() {
    return Seen([&] {
      std::string captions;
      for (HWND part = GetWindow(Top(), GW_CHILD); part != nullptr; part = GetWindow(part, GW_HWNDNEXT)) {
        const bool isButton = (SendMessageW(part, WM_GETDLGCODE, 0, 0) & (DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON)) != 0;
        if (isButton && IsWindowEnabled(part)) captions.append(captions.empty() ? "" : " ").append(TextIn(part));
      }
      return captions;
    });
  }
  std::string FocusedText() {
    return Seen([&] { return TextIn(GetFocus()); });
  }
  // By its access key.
  void Go(char key) { Press(key, VK_MENU); }
  void Overwrite(const std::string& text) {
    Press(VK_HOME);
    Press(VK_END, VK_SHIFT);
    Type(text);
  }
  // Answers a message by Enter, or with the button after that of Enter.
  void Answer(const std::string& text, bool first = true) {
    AwaitMessage(text);
    if (!first) Press(VK_TAB);
    Press(VK_RETURN);
  }
  static std::string Read(Registry& registry, TextView key, TextView value) {
    const auto stored = registry.Read(RegistryHive::kCurrentUser, key, value);
    return stored ? ToUtf8(std::get<Text>(*stored)) : "-";
  }
};

class TemplateDialogs : public Dialogs {
 protected:
  TemplateDialogs() {
    computer.Store(u"a.dot", 1);
    computer.Store(u"b.dot", 2, true);
    computer.Store(u"c.dot", 3);
  }
  // What the clerk chooses in the list.
  std::string Choose(bool admin, const std::function<void()>& clerk) {
    Text chosen;
    TemplateListArguments arguments{
        .rsZorApl = u"A1", .TypeOfApplOffice = ApplOffice::MSWord, .rbAdmin = admin, .rsCaption = u"Vyberte šablonu"};
    Meanwhile([&] { Await("Vyberte šablonu"), clerk(); }, [&] { chosen = lists.TemplateList(arguments); });
    return Shown(chosen);
  }
  std::string Order() {
    std::string order;
    for (const TextView name : {u"a.dot", u"b.dot", u"c.dot", u"d.dot"}) order += computer.Stored(name, u"key") + " ";
    return order;
  }

  TemplatePlatform computer;
  TemplateLists lists{computer.platform.With(windows())};
};

TEST_F(TemplateDialogs, AClerkChoosesAndReorders) {
  const std::string chosen = Choose(false, [&] {
    EXPECT_EQ(List(), "Popis a.dot, [Popis b.dot], Popis c.dot") << "the active one";
    EXPECT_EQ(Buttons(), "&OK &Zrušit Nahoru Dolů");
    Press(VK_DOWN);
    EXPECT_EQ(Buttons(), "&OK &Zrušit Nahoru");
    for (int step = 0; step < 3; ++step) Press(VK_TAB);  // OK, Zrušit, Nahoru
    EXPECT_EQ(FocusedText(), "Nahoru");
    Press(VK_SPACE);
    EXPECT_EQ(List(), "Popis a.dot, [Popis c.dot], Popis b.dot");
    Press(VK_SPACE);
    EXPECT_EQ(List(), "[Popis c.dot], Popis a.dot, Popis b.dot");
    EXPECT_EQ(FocusedText(), "Dolů") << "there is no way further up";
    Click(Part("ListBox"), 10, 20, 2);
  });
  EXPECT_EQ(chosen, "C:\\S\\a.dot") << "a double click is OK";
  EXPECT_EQ(Order(), "2 3 1 - ");
  EXPECT_EQ(computer.Stored(u"a.dot", u"active") + computer.Stored(u"b.dot", u"active"), "-10");

  computer.files.DeleteFile(u"C:\\S\\b.dot", true);
  EXPECT_EQ(Choose(false,
                   [&] {
                     Press(VK_END);
                     EXPECT_EQ(List(), "Popis c.dot, Popis a.dot, [NENALEZENO: Popis b.dot]");
                     Press(VK_RETURN);
                     EXPECT_EQ(List(), "Popis c.dot, Popis a.dot, [NENALEZENO: Popis b.dot]") << "its file is missing";
                     Press(VK_HOME);
                     Press(VK_RETURN);
                   }),
            "C:\\S\\c.dot");
  EXPECT_EQ(Choose(false, [&] { Press(VK_ESCAPE); }), "");
}

TEST_F(TemplateDialogs, AnAdministratorAddsEditsAndDeletes) {
  computer.files.Put(u"C:\\Nové\\d.dot", "");
  const std::string chosen = Choose(true, [&] {
    EXPECT_EQ(Buttons(), "&OK &Zrušit Přid&at Op&ravit &Smazat Nahoru Dolů");
    Go('A');
    Await("Šablona");
    EXPECT_EQ(FocusedText(), "0");
    Type("1x2");
    EXPECT_EQ(FocusedText(), "12") << "digits take the place of the old code, letters do not enter it";
    Go('P');
    Type("Nová šablona");
    Go('S');
    Overwrite("C:\\Nové\\d.xyz");
    Press(VK_RETURN);
    Answer("Zadaný typ souboru neodpovídá očekávanému, opravit ?", false);
    Await("Šablona");
    EXPECT_EQ(FocusedText(), "C:\\Nové\\d.xyz");
    Overwrite("C:\\Nové\\d.dot");
    Press(VK_RETURN);
    Await("Vyberte šablonu");
    EXPECT_EQ(List(), "Popis a.dot, [Nová šablona], Popis b.dot, Popis c.dot");

    Go('R');
    Await("Šablona");
    Go('K');
    Overwrite("");
    Type("99999999999");
    Go('O');
    Answer("Kód musí být celé číslo od -2147483648 do 2147483647 !");
    Await("Šablona");
    Press(VK_ESCAPE);
    Await("Vyberte šablonu");
    Click(Part("ListBox"), 10, 5);
    Go('S');
    EXPECT_EQ(List(), "[Nová šablona], Popis b.dot, Popis c.dot");
    Go('O');
  });
  EXPECT_EQ(chosen, "C:\\Nové\\d.dot");
  EXPECT_EQ(computer.Stored(u"d.dot", u"id"), "12");
  EXPECT_EQ(computer.Stored(u"d.dot", u"description"), "Nová šablona");
  EXPECT_EQ(computer.Stored(u"d.dot", u"path"), "C:\\Nové");
  EXPECT_EQ(Order(), "- 2 3 2 ");
}

TEST_F(TemplateDialogs, OpenWhereTheyWereLeft) {
  constexpr TextView kLayouts = u"Software\\VB and VBA Program Settings\\zorKancA\\Layout";
  Choose(false, [&] {
    Seen([&] { SetWindowPos(Top(), nullptr, 50, 40, 700, 450, SWP_NOZORDER); });
    Press(VK_ESCAPE);
  });
  EXPECT_EQ(Read(computer.registry, kLayouts, u"zorKancA_SablOffice"), "&0|!750|!600|!10500|!6750")
      << "at 15 twips each pixel";
  Choose(false, [&] {
    RECT place{};
    GetWindowRect(Top(), &place);
    EXPECT_EQ(place.left, 50);
    EXPECT_EQ(place.right, 750);
    EXPECT_EQ(place.bottom, 490);
    Press(VK_ESCAPE);
  });
}

TEST_F(TemplateDialogs, WithoutWindowsNothingIsChosenAndTheLogKnows) {
  const WindowLimit none(0);
  TemplateListArguments arguments{.rsZorApl = u"A1"};
  EXPECT_EQ(Shown(lists.TemplateList(arguments)), "");
  std::string logged;
  for (const Text& path : computer.files.Paths()) {
    if (path.starts_with(computer.environment.logFolder)) logged += computer.files.Bytes(path).value_or("");
  }
  EXPECT_NE(logged.find("no window can be shown here"), std::string::npos) << logged;
}

// In the registry and the files of the computer itself.
class AlternativeOffice : public Dialogs {
 protected:
  static constexpr const char* kTitle = "Nastavení pro používání alternativních kancelářských aplikací";
  static constexpr TextView kSettings = u"Software\\VB and VBA Program Settings\\zorKancA\\AlternativeOffice";
  static constexpr TextView kFolders = u"Software\\VB and VBA Program Settings\\zorKancA\\ABC\\AlternativeOffice";

  AlternativeOffice() {
    Forget();
    std::filesystem::create_directories(folder_ / L"Sešity");
    std::ofstream(folder_ / L"scalc.exe") << "MZ";
  }
  ~AlternativeOffice() override {
    Forget();
    std::filesystem::remove_all(folder_);
  }
  void Forget() {
    for (const TextView key : {kSettings, kFolders}) {
      for (const TextView value : {u"UseAlternativeTableEditor", u"TableEditorAppPath", u"TableEditorStoreFolder"}) {
        computer.platform().registry.DeleteValue(RegistryHive::kCurrentUser, key, value);
      }
    }
  }
  void Show(const std::function<void()>& clerk) {
    Meanwhile([&] { Await(kTitle), clerk(); }, [&] { manager.ShowPresetForm(eTypeOfEditor::TableEditor, u"abc"); });
  }
  std::string In(const wchar_t* name) const { return ToUtf8(FromWide((folder_ / name).c_str())); }
  std::string Setting(TextView key, TextView value) { return Read(computer.platform().registry, key, value); }
  // Waits until the form is in front again, with changes to be saved.
  void AwaitChanged() {
    Until([&] { return Part("&Uložit") != nullptr && GetForegroundWindow() == Top(); });
  }

  const std::filesystem::path folder_ = std::filesystem::temp_directory_path() / L"zorkanca kancelář";
  Win32Platform computer;
  cAlternativeOfficeManager manager{computer.platform().With(windows())};
};

TEST_F(AlternativeOffice, IsSetByKeysAlone) {
  Show([&] {
    EXPECT_EQ(Buttons(), "Po&užívat alternativní tabulkový editor &OK &Zrušit");
    Go('U');
    EXPECT_EQ(Buttons(), "Po&užívat alternativní tabulkový editor ... ... &Uložit &Zrušit");
    Go('E');
    Type(In(L"není"));
    Press(VK_RETURN);
    EXPECT_EQ(FocusedText(), "...") << "Enter goes on and presses nothing";
    Go('A');
    Type(In(L"Sešity"));
    for (int step = 0; step < 2; ++step) Press(VK_TAB);
    EXPECT_EQ(FocusedText(), "&Uložit");
    Press(VK_SPACE);
    Answer("Nastavený program alternativního tabulkového editoru nebyl nalezen\u00a0!");
    AwaitChanged();
    EXPECT_EQ(FocusedText(), In(L"není")) << "the clerk is led there";
    Type(In(L"scalc"));
    Press(VK_F5);
    EXPECT_EQ(Buttons(), "Po&užívat alternativní tabulkový editor &OK &Zrušit") << "as it is stored";
    Go('U');
    Go('E');
    Type(In(L"scalc"));
    Go('A');
    Type(In(L"Sešity"));
    Press(VK_ESCAPE);
    Answer("Uložit změny?");
  });
  EXPECT_EQ(Setting(kSettings, u"UseAlternativeTableEditor"), "1");
  EXPECT_EQ(Setting(kSettings, u"TableEditorAppPath"), In(L"scalc.exe"));
  EXPECT_EQ(Setting(kFolders, u"TableEditorStoreFolder"), In(L"Sešity"));

  Show([&] {
    Click(Part("Po&užívat alternativní tabulkový editor"));
    Press(VK_F4, VK_MENU);
    AwaitMessage("Uložit změny?");
    Press(VK_ESCAPE);
    AwaitChanged();
    EXPECT_EQ(Buttons(), "Po&užívat alternativní tabulkový editor &Uložit &Zrušit") << "nothing is lost";
    Go('U');
    Go('Z');
    Answer("Uložit změny?", false);
  });
  EXPECT_EQ(Setting(kSettings, u"UseAlternativeTableEditor"), "1");
}

}  // namespace
}  // namespace zorkanca::win32
