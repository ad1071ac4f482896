#include "qt/czech_texts.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace zorkanca {

namespace {

struct Entry {
  std::string_view text;
  const char16_t* czech;
};

// Whatever context asks: the same words mean the same in these dialogs.
constexpr auto kEntries = std::to_array<Entry>({
    {"Look in:", u"Kde hledat:"},
    {"File &name:", u"&Název souboru:"},
    {"&File name:", u"&Název souboru:"},
    {"Files of type:", u"Typ souborů:"},
    {"&Open", u"&Otevřít"},
    {"Open", u"Otevřít"},
    {"&Save", u"&Uložit"},
    {"&Choose", u"&Vybrat"},
    {"Cancel", u"Storno"},
    {"&Cancel", u"&Storno"},
    {"OK", u"OK"},
    {"&OK", u"&OK"},
    {"&Yes", u"&Ano"},
    {"&No", u"&Ne"},
    {"Back", u"Zpět"},
    {"Go back", u"Zpět"},
    {"Forward", u"Vpřed"},
    {"Go forward", u"Vpřed"},
    {"Parent Directory", u"Nadřazená složka"},
    {"Go to the parent directory", u"Do nadřazené složky"},
    {"Create New Folder", u"Nová složka"},
    {"Create a New Folder", u"Vytvořit novou složku"},
    {"List View", u"Seznam"},
    {"Change to list view mode", u"Zobrazit jako seznam"},
    {"Detail View", u"Podrobnosti"},
    {"Change to detail view mode", u"Zobrazit s podrobnostmi"},
    {"Sidebar", u"Postranní panel"},
    {"List of places and bookmarks", u"Místa a záložky"},
    {"Files", u"Soubory"},
    {"Directory:", u"Složka:"},
    {"Directories", u"Složky"},
    {"All Files (*)", u"Všechny soubory (*)"},
    {"Name", u"Název"},
    {"Size", u"Velikost"},
    {"Type", u"Typ"},
    {"Kind", u"Druh"},
    {"Date Modified", u"Změněno"},
    {"Computer", u"Počítač"},
    {"My Computer", u"Počítač"},
    {"Drive", u"Disk"},
    {"Folder", u"Složka"},
    {"File Folder", u"Složka"},
    {"File", u"Soubor"},
    {"%1 File", u"Soubor %1"},
    {"Show &hidden files", u"Zobrazit &skryté soubory"},
    {"&New Folder", u"&Nová složka"},
    {"New Folder", u"Nová složka"},
    {"&Rename", u"&Přejmenovat"},
    {"&Delete", u"&Odstranit"},
    {"Delete", u"Odstranit"},
    {"Remove", u"Odebrat"},
    {"Recent Places", u"Nedávná místa"},
    {"%1\nFile not found.\nPlease verify the correct file name was given.",
     u"%1\nSoubor nebyl nalezen.\nOvěřte prosím, zda je název správný."},
    {"%1\nDirectory not found.\nPlease verify the correct directory name was given.",
     u"%1\nSložka nebyla nalezena.\nOvěřte prosím, zda je název správný."},
    {"%1 already exists.\nDo you want to replace it?", u"%1 již existuje.\nPřejete si jej nahradit?"},
});

}  // namespace

QString CzechTexts::translate(const char*, const char* text, const char*, int) const {
  const auto isMeant = [text](const Entry& entry) { return entry.text == text; };
  const auto* found = std::find_if(kEntries.begin(), kEntries.end(), isMeant);
  return found == kEntries.end() ? QString() : QString::fromUtf16(found->czech);
}

}  // namespace zorkanca
