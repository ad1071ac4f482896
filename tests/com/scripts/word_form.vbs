' WdExportForm
Dim office, db, document, path, template
T.Serve "Word.Application"
T.Hold "Count", 1
T.Hold "Visible", True
T.Hold "WindowState", 0
T.Hold "Version", "16.0"
T.Hold "ProtectionType", -1
T.Write T.Folder & "formular.dot", "x"
Set office = T.Create("cZorOffice")
Set db = Goods()
template = T.Folder & "formular.dot"
T.Check office.WdExportForm(db, "SELECT * FROM zbozi", "ZK", template, , , , , , Array("", "0.0"), Array(True), 2.5, 1, , , document), T.Messages
T.Same T.Journal, "x"
