' WdExport: into one document, and one document for each record; the formats of columns.
Function Short(journal)
  Short = Replace(Replace(journal, T.Folder, ""), "Documents.Add(""dopis.dot"", False)", "D")
  Short = Replace(Replace(Short, "D.Application.ActiveDocument", "A"), "Sections(1)", "S")
End Function

Dim office, db, document, path, names, template, journal
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
T.Hold "OpenDataSource", True
T.Write T.Folder & "dopis.dot", "x"
Set office = T.Create("cZorOffice")
Set db = Goods()
template = T.Folder & "dopis.dot"
path = T.Folder & "data.txt"
T.Check office.WdExport(db, "SELECT * FROM zbozi", "ZK", template, names, 4, , , , path, , Array("", "0.0"), document), T.Messages
T.Same names, "Název;Cena;Skladem"
T.Same T.Read(path), "Název;Cena;Skladem" & vbCrLf & """Šroub; M6"";1234,5;True" & vbCrLf & "Matka;2,0;False" & vbCrLf
T.Check Not document Is Nothing, "the document"
T.Expect Short(T.Journal), "word_one"
T.Check office.WdExport(db, "SELECT * FROM zbozi", "ZK", template, "", , , , , path, True), T.Messages
journal = Short(T.Journal)
T.Same UBound(Split(journal, "D.MailMerge.Execute(False)")), 2
T.Same UBound(Split(journal, "D.Close(False)")), 2
T.Same UBound(Split(journal, "\Zorix\rad")), 2
