x = "FileSystemObject"
For i = 1 To 2
'-- next, exit do
Next
ts.Close
Close