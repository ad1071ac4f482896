' XlExport: the calls that reach Excel, the workbook handed back, Excel opened by itself, failures of Excel.
Dim office, db, book, path, names, found
T.Serve "Excel.Application"
T.Hold "Count", 3
T.Hold "Visible", True
T.Hold "WindowState", -4143
T.Hold "Name", "data.tmp"
Set office = T.Create("cZorOffice")
Set db = Goods()
path = T.Folder & "data.tmp"
T.Check office.XlExport(db, "SELECT * FROM zbozi", names, 4, path, book), T.Messages
T.Same names, "Název;Cena;Skladem"
T.Same T.Read(path), "Název;Cena;Skladem" & vbCrLf & """Šroub; M6"";1" & Chr(160) & "234,50;True" & vbCrLf & "Matka;2,00;False" & vbCrLf
T.Expect Replace(T.Journal, T.Folder, ""), "excel_table"

Set book = Nothing
T.Check office.GetOpenXls("", book, 0, False), "opened, left invisible"
T.Expect T.Journal, "excel_opened"
T.Fail "OpenText", 1004
Set book = Nothing
T.Check Not office.XlExport(db, "SELECT * FROM zbozi", "", , path, book), "Excel refuses"
T.Check InStr(T.Messages, "Export dat do aplikace MS Excel: Neočekávaná chyba: ") = 1, "the message"
T.Same T.Read(path), ""
T.Check Not book Is Nothing, "the workbook after the failure"
