' Settings that are kept in the registry, by reference and by value; properties of a new object.
Dim manager, office, applications, flag, path, before
Set office = T.Create("cZorOffice")
T.Same office.PercentInterval & ";" & office.Multiplier & ";" & office.BlankRecordsBefore, "1;;0"
office.PercentInterval = 2.5
office.BlankRecordsBefore = -3
T.Same office.PercentInterval & ";" & office.BlankRecordsBefore, "2,5;-3"

Set manager = T.Create("cAlternativeOfficeManager")
before = manager.GetUseAlternativeTableEditor
flag = True
manager.SaveUseAlternativeTableEditor flag
T.Check manager.GetUseAlternativeTableEditor, "used"
manager.SaveUseAlternativeTableEditor 0
T.Check Not manager.GetUseAlternativeTableEditor, "not used"
manager.SaveUseAlternativeTableEditor before
path = "C:\Program Files\Tabulky\tabulky.exe"
manager.SaveTableEditorAppPath path
T.Same manager.GetTableEditorAppPath(), path
manager.SaveTableEditorAppPath ""
manager.SaveDocumentEditorStoreFolder "C:\Žlutý\", " sklad "
T.Same manager.GetDocumentEditorStoreFolder("SKLAD"), "C:\Žlutý\"
T.Same manager.GetDocumentEditorStoreFolder("jiný"), ""
manager.SaveDocumentEditorStoreFolder "", "SKLAD"
T.Check InStr(manager.GetDefaultEditorStoreFolder(1, "sklad"), "\Zorix\sklad\Documents") > 0, manager.GetDefaultEditorStoreFolder(1, "sklad")
T.Same manager.GetDefaultEditorAppPath(0), ""
manager.OpenEditorStoreFolder 0, "SKLAD"
T.Check InStr(T.Opened, "Worksheets") > 0, "the folder is opened"

Set applications = T.Create("cKancelApl")
T.Check Not applications.DocEditorInstalovan, "no Word"
T.Check Not applications.XlsEditorInstalovan, "no Excel"
