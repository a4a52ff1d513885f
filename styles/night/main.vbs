'Night: dark and calm. Every text stands at a contrast of at least 4.5 to 1.
'Colours are BBGGRR.
Const Ground = &H28221E&
Const Panel = &H332C27&
Const Field = &H3C342D&
Const Plate = &H50453B&
Const Ink = &HEDEAE8&
Const Link = &HF6B88F&
Const Warning = &H8A9CFF&
Const Chosen = &H935F2F&
Const ChosenInk = &HFFFFFF&
Const Rule = &H6E6258&

'this sub will be run when a form loads Form is the entire form object
Sub Form_Load(Form)
  Form.BackColor = Ground
  Form.ForeColor = Ink
End Sub

'this sub will be run when a control on a form loads
'control is the entire usercontrol, form the form object
Sub Control_Load(Control, Form)
  'the map info shows the colour of a map's fog with it
  If Control.Name = "lblfogcolor" Then Exit Sub
  Select Case TypeName(Control)
    Case "Label"
      Paint Control, Ground, LabelInk(Control)
    Case "TextBox", "ListBox", "FileListBox", "ComboBox"
      Paint Control, Field, Ink
      Control.Appearance = 0
    Case "McListBox"
      Paint Control, Field, Ink
      Control.Appearance = 0
      Control.BackGradient = 0
      Control.SelGradient = 0
      Control.SelColor = Chosen
      Control.SelForeColor = ChosenInk
      Control.GridColor = Rule
    Case "CommandButton"
      Paint Control, Plate, Ink
    Case "CheckBox", "OptionButton"
      Paint Control, Ground, Ink
    Case "Frame"
      Paint Control, Ground, Ink
      Control.Appearance = 0
    Case "PictureBox"
      Paint Control, Panel, Ink
    Case "ProgressBar"
      Paint Control, Field, Ink
      Control.Progresscolor = Chosen
    Case "QuickLink"
      Control.BackColor = Panel
      Control.FontColor = Ink
      Control.LinkFontColor = Link
      Control.CloseLabel.ForeColor = Ink
    Case "Line"
      Control.BorderColor = Rule
    Case "Shape"
      Control.BorderColor = Rule
      Control.BackColor = Panel
  End Select
End Sub

Sub Paint(Control, Back, Fore)
  Control.BackColor = Back
  Control.ForeColor = Fore
End Sub

'Links are underlined, and what warns is called so.
Function LabelInk(Control)
  LabelInk = Ink
  If Control.FontUnderline Then LabelInk = Link
  If Control.Name = "LblMissing" Then LabelInk = Warning
End Function
