' Under the system's own host of scripts, with the registered library; it says nothing about errors, its status tells.
Dim format, factory
Set format = CreateObject("zorKancA.cFormat")
format.format = "#,##0.00"
Set factory = CreateObject("zorKancA.cExcel2003XmlTemplateFactory")
If format.format = "#,##0.00" And factory.Worksheets.Count = 0 Then
  WScript.Quit 7
End If
