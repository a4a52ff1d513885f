// Keys of a list that stand for buttons beside it.
#pragma once

#include <initializer_list>

#include "forms/command_button.h"

namespace kestrun {

// Presses the button of the key; the list then does not hear the key.
struct KeyButton {
  int key;
  CommandButton& button;
};
inline void PressForKey(int& key_code, std::initializer_list<KeyButton> rows) {
  for (const KeyButton& row : rows) {
    if (key_code != row.key) continue;
    key_code = 0;
    row.button.Press();
    return;
  }
}

}  // namespace kestrun
