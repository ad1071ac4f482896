' WdExport: into one document, and one document for each record.
Dim office, db, document, path, names, template
T.Serve "Word.Application"
T.Hold "Count", 1
T.Hold "Visible", True
T.Hold "WindowState", 0
T.Hold "Version", "16.0"
T.Hold "Text", ""
T.Hold "Type", -1
T.Hold "MainDocumentType", 0
T.Hold "Execute", False
T.Write T.Folder & "dopis.dot", "x"
Set office = T.Create("cZorOffice")
Set db = Goods()
template = T.Folder & "dopis.dot"
path = T.Folder & "data.txt"
T.Check office.WdExport(db, "SELECT * FROM zbozi", "ZK", template, names, 4, , , , path, , Array("", "0.0"), document), T.Messages
T.Same T.Read(path), "x"
T.Same T.Journal, "x"
