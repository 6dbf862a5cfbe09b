package com.olvane.kep.olvane.editor;

import java.awt.BasicStroke;
import java.awt.Color;
import java.awt.Component;
import java.awt.Graphics;
import java.awt.Graphics2D;
import java.awt.Insets;
import java.awt.RenderingHints;
import java.awt.geom.RoundRectangle2D;
import javax.swing.JComponent;
import javax.swing.border.AbstractBorder;

/**
 * A rounded line around a field: the accent while it has the focus, the colour of errors while
 * what is typed is refused.
 */
final class FlatBorder extends AbstractBorder {
  private static final long serialVersionUID = 1;
  /** Client property of a field: true while what is typed is refused. */
  static final String REFUSED = "refused";

  private final Insets insets;

  FlatBorder(Insets insets) {
    this.insets = insets;
  }

  @Override
  public Insets getBorderInsets(Component component, Insets into) {
    into.set(insets.top, insets.left, insets.bottom, insets.right);
    return into;
  }

  @Override
  public void paintBorder(Component c, Graphics g, int x, int y, int width, int height) {
    Palette palette = Theme.palette();
    boolean refused = Boolean.TRUE.equals(((JComponent) c).getClientProperty(REFUSED));
    boolean focused = hasFocus(c);
    paint(g, x, y, width, height, null,
        refused ? palette.error : focused ? palette.accent : palette.border,
        focused || refused ? 2f : 1f);
  }

  /** Whether a component has the focus, or for a spinner or box its editor. */
  static boolean hasFocus(Component component) {
    Component owner = java.awt.KeyboardFocusManager.getCurrentKeyboardFocusManager()
        .getFocusOwner();
    return owner != null && (owner == component
        || javax.swing.SwingUtilities.isDescendingFrom(owner, component));
  }

  /** Draws a rounded box; {@code face} and {@code line} may be null for none. */
  static void paint(
      Graphics graphics, int x, int y, int width, int height, Color face, Color line, float thick) {
    Graphics2D g = (Graphics2D) graphics.create();
    g.setRenderingHint(RenderingHints.KEY_ANTIALIASING, RenderingHints.VALUE_ANTIALIAS_ON);
    g.setRenderingHint(RenderingHints.KEY_STROKE_CONTROL, RenderingHints.VALUE_STROKE_PURE);
    if (face != null) {
      g.setColor(face);
      g.fill(new RoundRectangle2D.Float(x, y, width, height, 8, 8));
    }
    if (line != null) {
      g.setColor(line);
      g.setStroke(new BasicStroke(thick));
      g.draw(new RoundRectangle2D.Float(
          x + thick / 2, y + thick / 2, width - thick, height - thick, 7, 7));
    }
    g.dispose();
  }
}
