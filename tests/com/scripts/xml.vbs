' A spreadsheet-XML workbook from a template: sheets by name and position, grids, sections, For Each, identity.
Dim factory, sheet, again, section, text, names, each_
T.Write T.Folder & "sablona.xml", "<?xml version=""1.0""?><Workbook>" & vbCrLf & _
  "<?zrx_xls #worksheet_begin# ?><Worksheet ss:Name=""#worksheet_name#(zbozi)""><Table>" & vbCrLf & _
  "<?zrx_xls #grid_rows_(1)_begin# ?>" & vbCrLf & _
  "<Row><Cell><Data><?zrx_xls #GD-C1-c[***]-R1-r[***]-# ?></Data></Cell></Row>" & vbCrLf & _
  "<?zrx_xls #grid_rows_(1)_end# ?>" & vbCrLf & _
  "<?zrx_xls #worksheet_section_begin(2)# ?><Row><Cell><Data><?zrx_xls #GD-C2-c[***]-R2-r[***]-# ?></Data></Cell></Row>" & _
  "<?zrx_xls #worksheet_section_end(2)# ?>" & vbCrLf & _
  "</Table></Worksheet><?zrx_xls #worksheet_end# ?>" & vbCrLf & "</Workbook>"
Set factory = T.Create("cExcel2003XmlTemplateFactory")
T.Check factory.ReadTemplateFile(T.Folder & "sablona.xml"), "read"
Set sheet = factory.AddWorksheet("Zboží", "zbozi")
T.Check Not sheet Is Nothing, "added"
T.Same T.Messages, ""
T.Same sheet.WorksheetName, "Zboží"
T.Check sheet.XmlProcessFactory Is factory, "its factory"
sheet.SetRowsOfTaggedGrid 1, 3
sheet.SetDataIntoTaggedCell "druhý", 1, 1, , 2
sheet.SetDataIntoTaggedCell "první", 1, 1
sheet.RemoveDataFromTaggedCell 1, 1, 1, 3
sheet.SetAttributeValueToTable "ss:Filter", "a"
T.Same sheet.GetAttributeValueFromTable("ss:filter"), "a"
Set section = sheet.AddWorksheetSection(2)
section.SetDataIntoTaggedCell "oddíl", 2, 2
T.Check sheet.AddWorksheetSection(9) Is Nothing, "no such section"
factory.AddWorksheet "Druhý"
T.Same factory.Worksheets.Count, 2
Set again = factory.Worksheets(1)
T.Check again Is sheet, "by position: the same object"
T.Check factory.Worksheets("zboží") Is sheet, "by name: the same object"
T.Check factory.Worksheets.Item(2).XmlProcessFactory Is factory, "Item"
For Each each_ In factory.Worksheets
  names = names & each_.WorksheetName & ";"
Next
T.Same names, "Zboží;Druhý;"
factory.Worksheets.Remove "Druhý"
T.Same factory.Worksheets.Count, 1
T.Check factory.SaveWorkbook(T.Folder & "sesit.xml"), "saved"
text = T.Read(T.Folder & "sesit.xml")
T.Check InStr(text, "ss:Name=""Zbo") > 0, text
T.Check InStr(text, "<Data>prvn") < InStr(text, "<Data>druh") And InStr(text, "<Data>prvn") > 0, text
T.Check InStr(text, "<Data>odd") > 0, text
T.Check InStr(text, "zrx_xls") = 0, text
On Error Resume Next
sheet.SetColumnWidth 0, 10
T.Same Err.Number, -9999
Err.Clear
Set sheet.XmlProcessFactory = Nothing
T.Check sheet.XmlProcessFactory Is Nothing, "taken away"
sheet.SetDataIntoTaggedCell "nic", 1, 1
T.Same Err.Number, 91
Err.Clear
Set sheet.XmlProcessFactory = T
T.Same Err.Number, 13
