' WdExport_file, XlExport_sab_file, up_SplitColumnsFromDataRow.
Dim office, document, path, template, columns, fixed(1)
Set office = T.Create("cZorOffice")
office.up_SplitColumnsFromDataRow "a;""b;c"";", columns
T.Same UBound(columns) & " " & columns(1), "2 b;c"
columns = Array("x")
office.up_SplitColumnsFromDataRow "jeden", columns
T.Same UBound(columns) & " " & columns(0), "0 jeden"
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
T.Write T.Folder & "h.txt", "jméno;obec" & vbCrLf
T.Write T.Folder & "d.txt", "Žofie;Praha" & vbCrLf & "Jan;""Brno; střed""" & vbCrLf
template = T.Folder & "dopis.dot"
path = T.Folder & "data.txt"
T.Check office.WdExport_file(T.Folder & "h.txt", T.Folder & "d.txt", "ZK", template, , , , path, , , document), T.Messages
T.Same T.Read(path), "x"
T.Same T.Journal, "x"
