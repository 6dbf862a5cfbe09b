package com.olvane.kep.olvane.editor;

import static org.junit.Assert.assertTrue;

import java.awt.Color;
import org.junit.Test;

/** That texts can be read in both themes: the contrast that WCAG asks of text. */
public class PaletteTest {
  private static double luminance(Color colour) {
    double[] weights = {0.2126, 0.7152, 0.0722};
    float[] parts = colour.getRGBColorComponents(null);
    double sum = 0;
    for (int i = 0; i < 3; i++) {
      double part = parts[i];
      sum += weights[i]
          * (part <= 0.03928 ? part / 12.92 : Math.pow((part + 0.055) / 1.055, 2.4));
    }
    return sum;
  }

  /** The contrast of two colours, from 1 to 21. */
  static double contrast(Color one, Color other) {
    double a = luminance(one);
    double b = luminance(other);
    return (Math.max(a, b) + 0.05) / (Math.min(a, b) + 0.05);
  }

  private static void readable(Palette palette, Color text, Color behind, double ratio) {
    assertTrue(palette + ": " + text + " on " + behind + " is " + contrast(text, behind),
        contrast(text, behind) >= ratio);
  }

  @Test
  public void textsStandOut() {
    for (Palette palette : Palette.values()) {
      Color[] behind = {palette.content, palette.surface, palette.raised, palette.hover};
      for (Color place : behind) {
        readable(palette, palette.text, place, 7);
        readable(palette, palette.faint, place, 4.5);
        readable(palette, palette.error, place, 4.5);
        readable(palette, palette.warning, place, 4.5);
        readable(palette, palette.good, place, 4);
      }
      readable(palette, palette.text, palette.selection, 7);
      readable(palette, palette.onAccent, palette.accent, 4.5);
      readable(palette, palette.border, palette.content, 3);
    }
  }
}
