' XlExport: the calls that reach Excel, the workbook handed back, Excel opened by itself, failures of Excel.
Dim office, db, book, path, names
T.Serve "Excel.Application"
T.Hold "Count", 3
T.Hold "Visible", True
T.Hold "WindowState", -4143
T.Hold "Name", "data.tmp"
Set office = T.Create("cZorOffice")
Set db = Goods()
path = T.Folder & "data.tmp"
T.Check office.XlExport(db, "SELECT * FROM zbozi", names, 4, path, book), T.Messages
T.Same names, "x"
T.Check Not book Is Nothing, "the workbook"
T.Same T.Read(path), "x"
T.Same T.Journal, "x"
