'Sand: the colours of a desert noon, dunes on the first window, and the wind in the about window.
'Colours are BBGGRR.
Const Sky = &HD6EEF7&
Const Dune = &H98C8DE&
Const Ground = &HBADCE8&
Const Field = &HECF8FD&
Const Plate = &H5E9FC4&
Const Ink = &H12263A&
Const Link = &H5A1E14&
Const Warning = &H0A128C&
Const Chosen = &H1F5680&
Const ChosenInk = &HEAF8FF&
Const Rule = &H5F8CA8&
Const Hole = &HFF00FF&

'this sub will be run when a form loads Form is the entire form object
Sub Form_Load(Form)
  Form.BackColor = Ground
  Form.ForeColor = Ink
  If Form.Name = "frmsplash" Then ShowDunes Form : Exit Sub
  ShowNoon Form
  If Form.Name = "frmhelp" Then System.PlaySoundFile "wind.wav"
End Sub

'this sub will be run when a control on a form loads
'control is the entire usercontrol, form the form object
Sub Control_Load(Control, Form)
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

'The first window is cut to the shape of its dunes.
Sub ShowDunes(Form)
  Set Form.Picture = System.LoadPFFPicture("dunes.bmp")
  Form.Show
  System.DrawIt
  System.TransControl Form, Hole
End Sub
