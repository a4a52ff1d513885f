WScript.Echo "before"
  x = 1 / 0
