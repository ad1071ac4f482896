' WdExportForm: fields by the names of columns, one character each, margins.
Dim office, db, document, template
T.Serve "Word.Application"
T.Hold "Count", 1
T.Hold "Visible", True
T.Hold "ScreenUpdating", True
T.Hold "CheckLanguage", True
T.Hold "WindowState", 0
T.Hold "Version", "16.0"
T.Hold "Result", ""
T.Write T.Folder & "formular.dot", "x"
Set office = T.Create("cZorOffice")
Set db = Goods()
db.Columns = Array("Nazev", "Cena", "Skladem")
template = T.Folder & "formular.dot"
T.Check office.WdExportForm(db, "SELECT * FROM zbozi", "ZK", template, , , , , , Array("", "0.0"), Array(False, True), 2.5, 1, , , document), T.Messages
T.Check Not document Is Nothing, "the document"
T.Expect Replace(Replace(T.Journal, T.Folder, ""), "Documents.Add(""formular.dot"", False)", "D"), "word_form"
