' A database of DAO's shape in the script itself. Rows holds an array of values for each record.
Class ScriptDatabase
  Public Columns
  Public Rows
  Public Asked
  Public Closed

  Public Function OpenRecordset(sql, kind, options)
    Dim recordset
    Asked = sql & ", " & kind & ", " & options
    Set recordset = New ScriptRecordset
    Set recordset.Database = Me
    recordset.Row = 0
    Set OpenRecordset = recordset
  End Function
  Public Function Cell(row, column)
    Dim all, one
    all = Rows
    one = all(row)
    Cell = one(column)
  End Function
  Public Function ColumnName(column)
    Dim all
    all = Columns
    ColumnName = all(column)
  End Function
  Public Function ColumnCount()
    Dim all
    all = Columns
    ColumnCount = UBound(all) + 1
  End Function
  Public Function Count()
    Dim all
    all = Rows
    Count = UBound(all) + 1
  End Function
End Class

Class ScriptRecordset
  Public Database
  Public Row

  Public Property Get BOF
    BOF = (Database.Count() = 0)
  End Property
  Public Property Get EOF
    EOF = (Row >= Database.Count())
  End Property
  Public Property Get RecordCount
    RecordCount = Database.Count()
  End Property
  Public Property Get Fields
    Dim list
    Set list = New ScriptFields
    Set list.Recordset = Me
    Set Fields = list
  End Property
  Public Sub MoveFirst()
    Row = 0
  End Sub
  Public Sub MoveLast()
    Row = Database.Count() - 1
  End Sub
  Public Sub MoveNext()
    Row = Row + 1
  End Sub
  Public Sub Close()
    Database.Closed = Database.Closed + 1
  End Sub
End Class

Class ScriptFields
  Public Recordset

  Public Property Get Count
    Count = Recordset.Database.ColumnCount()
  End Property
  Public Default Function Item(key)
    Dim field, column
    Set field = New ScriptField
    Set field.Recordset = Recordset
    field.Column = -1
    For column = 0 To Recordset.Database.ColumnCount() - 1
      If VarType(key) = 8 Then
        If LCase(Recordset.Database.ColumnName(column)) = LCase(key) Then
          field.Column = column
        End If
      ElseIf column = key Then
        field.Column = column
      End If
    Next
    If field.Column < 0 Then
      Err.Raise 3265, "Script", "Item not found in this collection."
    End If
    Set Item = field
  End Function
End Class

Class ScriptField
  Public Recordset
  Public Column

  Public Property Get Name
    Name = Recordset.Database.ColumnName(Column)
  End Property
  Public Property Get Type
    Select Case VarType(Recordset.Database.Cell(0, Column))
      Case 2, 3
        Type = 4
      Case 5
        Type = 7
      Case 6
        Type = 5
      Case 7
        Type = 8
      Case 11
        Type = 1
      Case Else
        Type = 10
    End Select
  End Property
  Public Property Get Size
    Size = 50
  End Property
  Public Property Get Value
    Value = Recordset.Database.Cell(Recordset.Row, Column)
  End Property
End Class

Function Goods()
  Dim made
  Set made = New ScriptDatabase
  made.Columns = Array("Název", "Cena", "Skladem")
  made.Rows = Array(Array("Šroub; M6", CCur(1234.5), True), Array("Matka", CCur(2), False))
  made.Closed = 0
  Set Goods = made
End Function
