'Sand: the colours of a desert noon, dunes on the first window, and the wind in the about window.
'Colours are BBGGRR.
Const Sky = &HCAE6F0&
Const Dune = &HA8D0E0&
Const Ground = &HBADCE8&
Const Field = &HECF8FD&
Const Plate = &H5E9FC4&
Const Ink = &H12263A&
Const Link = &H5A1E14&
Const Warning = &H0A128C&
Const Chosen = &H1F5680&
Const ChosenInk = &HEAF8FF&
Const Rule = &H5F8CA8&
Const Hole = &H78B0C4&
'of a button's corners, in twips
Const Radius = 75

'this sub will be run when a form loads Form is the entire form object
Sub Form_Load(Form)
  Form.BackColor = Ground
  Form.ForeColor = Ink
  If Form.Name = "frmsplash" Then Set Form.Picture = System.LoadPFFPicture("dunes.bmp") : Exit Sub
  ShowNoon Form
  If Form.Name = "frmhelp" Then System.PlaySoundFile "wind.wav"
End Sub

'this sub will be run when a control on a form loads
'control is the entire usercontrol, form the form object
Sub Control_Load(Control, Form)
  Skin Control
  'the last one: now nothing of the window has its old look
  If Control Is Form.Controls(Form.Controls.Count - 1) Then ShapeWindow Form
End Sub

Sub Skin(Control)
  'the map info shows the colour of a map's fog with it
  If Control.Name = "lblfogcolor" Then Exit Sub
  Select Case TypeName(Control)
    Case "Label"
      Paint Control, Ground, LabelInk(Control)
      Control.BackStyle = 0
    Case "TextBox", "ListBox", "FileListBox", "ComboBox"
      Paint Control, Field, Ink
    Case "McListBox"
      Paint Control, Field, Ink
      Control.SelColor = Chosen
      Control.SelForeColor = ChosenInk
      Control.GridColor = Rule
    Case "CommandButton"
      Paint Control, Plate, Ink
    Case "CheckBox", "OptionButton", "Frame", "PictureBox"
      Paint Control, Ground, Ink
    Case "ProgressBar"
      Paint Control, Field, Ink
      Control.Progresscolor = Plate
    Case "QuickLink"
      Control.BackColor = Field
      Control.FontColor = Ink
      Control.LinkFontColor = Link
    Case "Line", "Shape"
      Control.BorderColor = Rule
  End Select
End Sub

Sub Paint(Control, Back, Fore)
  Control.BackColor = Back
  Control.ForeColor = Fore
End Sub

Function LabelInk(Control)
  LabelInk = Ink
  If Control.FontUnderline Then LabelInk = Link
  If Control.Name = "LblMissing" Then LabelInk = Warning
End Function

'The light of noon falls from the top. Windows that grow keep the ground's colour below it.
Sub ShowNoon(Form)
  Dim Context
  Context = Form.hDC
  System.DrawGradientBackground Context, Form.ScaleWidth / Screen.TwipsPerPixelX + 1, Form.ScaleHeight / Screen.TwipsPerPixelY + 1, Sky, Dune
End Sub

'Shapes are cut from what is on the screen, so only a window that is there can be cut.
Sub ShapeWindow(Form)
  If Form.Name = "frmsplash" Then
    Form.Show
    System.DrawIt
    System.TransControl Form, Hole
  ElseIf Form.Visible Then
    RoundButtons Form
  ElseIf IsSkinnedFirst(Form.Name) Then
    ShapeBeforeItIsThere Form
  End If
End Sub

'Windows that put their style on before they are there.
Function IsSkinnedFirst(Name)
  Select Case Name
    Case "frmain", "frmhelp", "frmzip", "frmname", "frmchat", "FrmUpdate", "frmdwnlhelp"
      IsSkinnedFirst = True
    Case Else
      IsSkinnedFirst = False
  End Select
End Function

'Their timers wait: nothing begins in a window that has not loaded all of itself.
Sub ShapeBeforeItIsThere(Form)
  Dim Waiting, Control, Failure, Reason
  Set Waiting = CreateObject("Scripting.Dictionary")
  For Each Control In Form.Controls
    If TypeName(Control) = "Timer" Then
      If Control.Enabled Then
        Waiting.Add Control.Name, Control
        Control.Enabled = False
      End If
    End If
  Next
  'and they go on whatever becomes of the shapes
  On Error Resume Next
  Form.Show
  If Err.Number = 0 Then RoundButtons Form
  Failure = Err.Number
  Reason = Err.Description
  For Each Control In Waiting.Items
    Control.Enabled = True
  Next
  On Error GoTo 0
  If Failure <> 0 Then Err.Raise Failure, "", Reason
End Sub

'A mask lies over each button while the button is cut to its shape: a plate whose corners are holes.
Sub RoundButtons(Form)
  Dim Buttons, Control, Number
  Buttons = Array()
  For Each Control In Form.Controls
    If TypeName(Control) = "CommandButton" Then
      If Control.Visible Then
        ReDim Preserve Buttons(UBound(Buttons) + 1)
        Set Buttons(UBound(Buttons)) = Control
      End If
    End If
  Next
  For Number = 0 To UBound(Buttons)
    CoverButton Form, Buttons(Number), "mask" & Number
  Next
  System.DrawIt
  For Number = 0 To UBound(Buttons)
    System.TransControl Buttons(Number), Hole
  Next
  For Number = 0 To UBound(Buttons)
    Form.Controls.Remove "mask" & Number
  Next
End Sub

Sub CoverButton(Form, Button, Name)
  Dim Mask, Dot, Row, Inset
  Set Mask = Form.Controls.Add("VB.PictureBox", Name)
  Set Mask.Container = Button.Container
  Mask.BorderStyle = 0
  Mask.BackColor = Plate
  Mask.Move Button.Left, Button.Top, Button.Width, Button.Height
  Dot = Screen.TwipsPerPixelX
  For Row = 0 To Round(Radius / Dot)
    Inset = Round((Radius - Sqr(Radius * Radius - (Radius - Row * Dot) ^ 2)) / Dot) * Dot
    Corners Mask, Row * Dot, Inset
    Corners Mask, Button.Height - (Row + 1) * Dot, Inset
  Next
  Mask.Visible = True
  Mask.ZOrder 0
End Sub

'Both ends of one row of pixels.
Sub Corners(Mask, Y, Inset)
  Dim Dot
  Dot = Screen.TwipsPerPixelX
  If Inset < Dot Then Exit Sub
  Mask.Line 0, Y, Inset - Dot, Y, Hole, "BF"
  Mask.Line Mask.Width - Inset, Y, Mask.Width, Y, Hole, "BF"
End Sub
