' HTMLExport: gaps, texts by reference, events, Cancel, a handler that fails.
Class Listener
  Public Journal
  Public StopAt
  Public FailAt

  Public Sub ExportState(state, message)
    Journal = Journal & state & " " & message & " | "
  End Sub
  Public Sub PercentDone(percent, cancel)
    Journal = Journal & percent & " | "
    If percent = StopAt Then
      cancel = True
    End If
    If percent = FailAt Then
      Err.Raise 5, "Listener", "of the handler"
    End If
  End Sub
End Class

Dim office, db, listening, path, names, text
Set office = T.Create("cZorOffice")
Set db = Goods()
path = T.Folder & "ceník"
T.Check office.HTMLExport(db, "SELECT * FROM zbozi", names, , path), "exported"
T.Same path, T.Folder & "ceník.htm"
T.Same T.Opened, path
T.Same db.Asked, "SELECT * FROM zbozi, 2, 0"
T.Same db.Closed, 1
text = T.Read(path)
T.Check InStr(text, "<TD>Šroub; M6</TD>") > 0 Or InStr(text, "Šroub; M6") > 0, text
T.Check InStr(text, "1" & Chr(160) & "234,50") > 0, text
T.Check InStr(text, "Pravda") > 0, text

names = "Zboží;Cena v Kč;Je"
path = T.Folder & "b.html"
T.Check office.HTMLExport(db, "SELECT * FROM t", names, 4, path, "Ceník", 0, 2, 3), "with all arguments"
T.Same names, ""
T.Same db.Asked, "SELECT * FROM t, 2, 4"
text = T.Read(path)
T.Check InStr(text, "<TITLE>Ceník</TITLE>") > 0, text
T.Check InStr(text, "border=0 cellPadding=2 cellSpacing=3") > 0, text
T.Check InStr(text, "Cena v Kč") > 0, text

Set listening = New Listener
T.Events office, listening
office.PercentInterval = 50
T.Check office.HTMLExport(db, "SELECT * FROM t", , , path), "with a listener"
T.Same listening.Journal, "50 | 50 | 100 | 1 Otvírá se prohlížeč formátu HTML ... | " & _
  "0 Dokončeno otvírání prohlížeče formátu HTML | "
listening.Journal = ""
listening.StopAt = 50
T.Messages
office.BlankRecordsBefore = 2
T.Check Not office.HTMLExport(db, "SELECT * FROM t", , , path), "cancelled"
T.Same listening.Journal, "50 | "
T.Same T.Messages, "Export dat do formátu HTML: Výstup byl přerušen uživatelem !"
T.Same T.Read(path), ""
T.Same office.BlankRecordsBefore, 0
listening.StopAt = 0
listening.FailAt = 50
T.Allow "of the handler"
T.Check office.HTMLExport(db, "SELECT * FROM t", , , path), "a failing handler is its own business"

office.Multiplier = "kusů"
T.Allow "Item not found in this collection."
T.Check Not office.HTMLExport(db, "SELECT * FROM t", , , path), "no such multiplier"
T.Same office.Multiplier, "kusů"
T.Check InStr(T.Messages, "Export dat do formátu HTML: ") = 1, "the message"
