#pragma once
// The console's key codes are the virtual key codes of its keyboard desk:
// letters 65..90, digits 48..57, Page Up 33 ... The keyboard desk lays its
// pairs of keys one above the other, so letters, digits and the four
// punctuation keys of the bottom rows are taken by their place on the
// keyboard where the platform tells it (X11 key codes), whatever the layout
// prints on them; elsewhere by the key Qt reports.

class QKeyEvent;

namespace q::gui {

// 0 when the key has no code on the console.
int virtualKey(const QKeyEvent& e);
// The code of the key at an X11 key code, by its place on a PC keyboard; 0 when none.
int virtualKeyAtPlace(unsigned nativeScanCode);
// The code of a key by what Qt calls it; 0 when none.
int virtualKeyOf(int qtKey);

}  // namespace q::gui
