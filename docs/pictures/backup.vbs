'--copies the shop's pages to the archive, one folder a day
Option Explicit
Dim fso, source, target, file, copied

Set fso = CreateObject("Scripting.FileSystemObject")
source = "C:\site"
target = "D:\archive\" & Year(Now) & "-" & Month(Now) & "-" & Day(Now)
copied = 0

If Not fso.FolderExists(target) Then
  fso.CreateFolder target
End If

For Each file In fso.GetFolder(source).Files
  If LCase(fso.GetExtensionName(file.Name)) = "htm" Then
    fso.CopyFile file.Path, target & "\, True
    copied = copied + 1
  End If
Next

Sub Report(text)
  MsgBox text & " (<<name of the shop>>)"
End Sub

Report copied & " pages copied if they ended in .htm"
