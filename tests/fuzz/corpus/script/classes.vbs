Option Explicit
Dim a, b(3)
Class C
  Public Default Property Get Item(i)
    Set Item = Me
  End Property
End Class
For Each a In b
  With a
    If Not .x(1) Is Nothing Then f (.y) & "z", _
      #1/2/2026# Else Exit For
  End With
Next
Select Case a ^ -2 Mod &HFF
Case 1, "x": Call g(a)(b)
End Select
