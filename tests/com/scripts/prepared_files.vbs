' WdExport_file, XlExport_sab_file, up_SplitColumnsFromDataRow.
Dim office, document, path, template, columns
Set office = T.Create("cZorOffice")
office.up_SplitColumnsFromDataRow "a;""b;c"";", columns
T.Same UBound(columns) & " " & columns(1), "2 b;c"
columns = Array("x")
office.up_SplitColumnsFromDataRow "jeden", columns
T.Same UBound(columns) & " " & columns(0), "0 jeden"
T.Serve "Word.Application"
T.Hold "Count", 1
T.Hold "Visible", True
T.Hold "ScreenUpdating", True
T.Hold "CheckLanguage", True
T.Hold "WindowState", 0
T.Hold "Version", "16.0"
T.Hold "Text", ""
T.Hold "Start", 0
T.Hold "End", 0
T.Hold "MainDocumentType", 0
T.Hold "Execute", False
T.Write T.Folder & "dopis.dot", "x"
T.Write T.Folder & "h.txt", "jméno;obec"
T.Write T.Folder & "d.txt", "Žofie;Praha" & vbCrLf & "Jan;""Brno; střed""" & vbCrLf
template = T.Folder & "dopis.dot"
path = T.Folder & "data.txt"
T.Check office.WdExport_file(T.Folder & "h.txt", T.Folder & "d.txt", "ZK", template, , , , path, , , document), T.Messages
T.Same T.Read(path), "jméno;obec" & vbCrLf & "Žofie;Praha" & vbCrLf & "Jan;""Brno; střed""" & vbCrLf
T.Check InStr(T.Journal, "MailMerge.Execute") > 0, "merged"
T.Check Not document Is Nothing, "the document"
T.Check Not office.WdExport_file(T.Folder & "neni.txt", T.Folder & "d.txt", "ZK", template), "no header file"
T.Same T.Messages, "Export dat do aplikace MS Word: Hlavičkový soubor nebyl nalezen !"
T.Serve "Excel.Application"
T.Hold "Count", 1
T.Hold "FormulaR1C1", "{obec}"
T.Hold "Value2", "{obec}"
T.Hold "Text", "{obec}"
T.Hold "Visible", True
T.Hold "WindowState", -4143
T.Hold "Name", "data.txt"
T.Check office.XlExport_sab_file(T.Folder & "h.txt", T.Folder & "d.txt", "ZK", template, , , , path), T.Messages
T.Same T.Read(path), "Praha" & vbCrLf & """Brno; střed""" & vbCrLf
