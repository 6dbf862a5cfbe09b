package com.olvane.kep.olvane.editor;

import java.awt.Color;

/** The colours of a theme. Texts stand out from what is behind them by 4.5 to 1 at least. */
enum Palette {
  /** Dark text on white. */
  LIGHT(0xffffff, 0xf5f6f8, 0xebedf0, 0x1f2328, 0x5b6470, 0xd0d5dc, 0x8a929d, 0x1f6fd6, 0xffffff,
      0xcfe3fb, 0xe6eaef, 0xb42318, 0x8a5a00, 0x1a7f37),
  /** Light text on dark grey. */
  DARK(0x1e2126, 0x272b31, 0x30353c, 0xe4e7eb, 0xa3adb9, 0x3f454e, 0x707a86, 0x62a8f5, 0x0f1720,
      0x274a73, 0x333941, 0xff8a7d, 0xe3b341, 0x57c273);

  /** Behind what is read or edited: trees, tables, fields. */
  final Color content;
  /** Behind everything else. */
  final Color surface;
  /** Buttons, headers, the track of a progress bar. */
  final Color raised;
  /** Text. */
  final Color text;
  /** Text that stands back: hints, counts, what cannot be used. */
  final Color faint;
  /** Lines between things. */
  final Color line;
  /** The borders of fields and boxes. */
  final Color border;
  /** The focus, links, chosen tabs. */
  final Color accent;
  /** Text on the accent. */
  final Color onAccent;
  /** Behind what is selected. */
  final Color selection;
  /** Behind what is selected in a view that has not the focus, and under the mouse. */
  final Color hover;
  /** Text that tells of an error. */
  final Color error;
  /** Text that tells of something to look at. */
  final Color warning;
  /** Text that tells of something good or new. */
  final Color good;

  Palette(int content, int surface, int raised, int text, int faint, int line, int border,
      int accent, int onAccent, int selection, int hover, int error, int warning, int good) {
    this.content = new Color(content);
    this.surface = new Color(surface);
    this.raised = new Color(raised);
    this.text = new Color(text);
    this.faint = new Color(faint);
    this.line = new Color(line);
    this.border = new Color(border);
    this.accent = new Color(accent);
    this.onAccent = new Color(onAccent);
    this.selection = new Color(selection);
    this.hover = new Color(hover);
    this.error = new Color(error);
    this.warning = new Color(warning);
    this.good = new Color(good);
  }
}
