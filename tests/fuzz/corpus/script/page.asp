<%@ Language=VBScript %>
<!-- #include file="a.inc" -->
<% Do While x %><td><%= rs("a") %></td><% Loop %>
<script runat="server">Sub f : End Sub</script>
