' Errors as a script reads them, and failures that are told in messages.
Dim office, format, factory, sheet, db, done

Class Broken
  Public Function OpenRecordset(sql, kind, options)
    Err.Raise 3078, "Jet", "Tabulka neexistuje."
  End Function
End Class

Set office = T.Create("cZorOffice")
Set format = T.Create("cFormat")
Set factory = T.Create("cExcel2003XmlTemplateFactory")
On Error Resume Next
format.format = "case 1 ano"
T.Same Err.Number & " " & Err.Source, "5 zorKancA.cFormat"
T.Check Err.Description <> "", "a description"
Err.Clear
format.format = "#,##0.00"
T.Same Err.Number & " " & format.format, "0 #,##0.00"
format.format = "case like [a: b"
T.Same Err.Number & " " & format.format, "93 #,##0.00"
Err.Clear
office.BlankRecordsBefore = 40000
T.Same Err.Number, 6
Err.Clear
office.BlankRecordsBefore = "mnoho"
T.Same Err.Number, 13
Err.Clear
office.Missing_ 1
T.Same Err.Number, 438
Err.Clear
office.HTMLExport
T.Same Err.Number, 450
Err.Clear
Set sheet = factory.Worksheets(3)
T.Same Err.Number, 9
Err.Clear
Set sheet = factory.Worksheets("nikdo")
T.Same Err.Number, 5
Err.Clear
On Error GoTo 0

T.Messages
T.Check Not office.HTMLExport(Nothing, "SELECT * FROM t"), "no database"
T.Check InStr(T.Messages, "Chyba při přístupu k datům !") > 0, "no database: the message"
Set db = New Broken
T.Allow "Tabulka neexistuje."
done = office.HTMLExport(db, "SELECT * FROM t", , , T.Folder & "x.htm")
T.Check Not done, "an error of the client's own database"
T.Check InStr(T.Messages, "Chyba při přístupu k datům !") > 0, "the message"
T.Same T.Read(T.Folder & "x.htm"), ""
T.Check Not factory.ReadTemplateFile(T.Folder & "neni.xml"), "no template"
T.Check T.Messages <> "", "no template: the message"
T.Check Not office.XlExport(Goods(), "SELECT * FROM t"), "no Excel"
T.Check T.Messages <> "", "no Excel: the message"
