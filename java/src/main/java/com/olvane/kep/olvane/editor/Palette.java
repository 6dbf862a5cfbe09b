package com.olvane.kep.olvane.editor;

import java.awt.Color;

/** The colours of a theme. Texts stand out from what is behind them by 4.5 to 1 at least. */
enum Palette {
  /** Dark text on white. */
  LIGHT,
  /** Light text on dark grey. */
  DARK;

  /** Behind what is read or edited: trees, tables, fields. */
  final Color content = colour(0xffffff, 0x1e2126);
  /** Behind everything else. */
  final Color surface = colour(0xf5f6f8, 0x272b31);
  /** Buttons, headers, the track of a progress bar. */
  final Color raised = colour(0xebedf0, 0x30353c);
  /** Text. */
  final Color text = colour(0x1f2328, 0xe4e7eb);
  /** Text that stands back: hints, counts, what cannot be used. */
  final Color faint = colour(0x5b6470, 0xa3adb9);
  /** Lines between things. */
  final Color line = colour(0xd0d5dc, 0x3f454e);
  /** The borders of fields and boxes. */
  final Color border = colour(0x8a929d, 0x707a86);
  /** The focus, links, chosen tabs. */
  final Color accent = colour(0x1f6fd6, 0x62a8f5);
  /** Text on the accent. */
  final Color onAccent = colour(0xffffff, 0x0f1720);
  /** Behind what is selected. */
  final Color selection = colour(0xcfe3fb, 0x274a73);
  /** Behind what is selected in a view that has not the focus, and under the mouse. */
  final Color hover = colour(0xe6eaef, 0x333941);
  /** Text that tells of an error. */
  final Color error = colour(0xb42318, 0xff8a7d);
  /** Text that tells of something to look at. */
  final Color warning = colour(0x8a5a00, 0xe3b341);
  /** Text that tells of something good or new. */
  final Color good = colour(0x1a7f37, 0x57c273);

  private Color colour(int light, int dark) {
    return new Color(ordinal() == 0 ? light : dark);
  }
}
