' XlExport_sab: a template filled through the clipboard, and with the formulas put in directly.
Dim office, db, book, path, names, template, shell
Const SETTING = "HKLM\SOFTWARE\QRD\Zorix\Instalace\ZorKancA\XlPasteFormulasNoClipboard"
T.Serve "Excel.Application"
T.Hold "Count", 1
T.Hold "FormulaR1C1", "{Název}"
T.Hold "Value2", "{Název}"
T.Hold "Text", "{Název}: {Cena;0.0}"
T.Hold "Visible", True
T.Hold "WindowState", -4143
T.Hold "Name", "data.tmp"
T.Write T.Folder & "sablona.xlt", "x"
Set shell = CreateObject("WScript.Shell")
shell.RegWrite SETTING, "0"
Set office = T.Create("cZorOffice")
Set db = Goods()
template = T.Folder & "sablona.xlt"
path = T.Folder & "data.tmp"
T.Check office.XlExport_sab(db, "SELECT * FROM zbozi", "ZK", template, names, , , , , path, book), T.Messages
T.Same T.Read(path), """Šroub; M6: 1234,5""" & vbCrLf & "Matka: 2,0" & vbCrLf
T.Expect Replace(Replace(T.Journal, T.Folder, ""), "Workbooks.Add(""sablona.xlt"")", "W"), "excel_clipboard"

shell.RegWrite SETTING, "1"
Set office = T.Create("cZorOffice")
T.Check office.XlExport_sab(db, "SELECT * FROM zbozi", "ZK", template, names, , , , , path, book), T.Messages
T.Expect Replace(Replace(T.Journal, T.Folder, ""), "Workbooks.Add(""sablona.xlt"")", "W"), "excel_formulas"
shell.RegWrite SETTING, "0"
template = T.Folder & "neni.xlt"
T.Check Not office.XlExport_sab(db, "SELECT * FROM zbozi", "ZK", template), "no template"
T.Same T.Messages, "Export dat do aplikace MS Excel: Neplatný název šablony !"
