Sub a
If x = "1" Then
End If
End Sub
