' XlExport_sab: with and without the clipboard.
Dim office, db, book, path, names, template
T.Serve "Excel.Application"
T.Hold "Count", 3
T.Hold "Visible", True
T.Hold "WindowState", -4143
T.Hold "Name", "data.tmp"
T.Write T.Folder & "sablona.xlt", "x"
Set office = T.Create("cZorOffice")
Set db = Goods()
template = T.Folder & "sablona.xlt"
T.Check office.XlExport_sab(db, "SELECT * FROM zbozi", "ZK", template, names, , , , , path, book), T.Messages
T.Same T.Journal, "x"
